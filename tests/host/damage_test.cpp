#include "host/base/atomic_file.h"
#include "host/store/preparation.h"
#include "tests/host/file_writes.h"
#include "tests/host/test_root.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

namespace {

using host::Store;
using host::StoreKind;

constexpr char defaults[] = R"({"a":{"x":1,"y":2},"list":["root"]})";

std::string contentOf(const StoreKind& kind) { return Store(kind).readText("{}").value_or("none"); }

void runSql(const StoreKind& kind, const char* sql) {
    sqlite3* connection = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(kind.databasePath().c_str(), &connection));
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(connection, sql, nullptr, nullptr, nullptr));
    sqlite3_close(connection);
}

void overwrite(const std::string& path, long offset, std::size_t length) {
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(offset).write(std::string(length, '\xa5').data(), static_cast<std::streamsize>(length));
}

TEST(Preparation, KeepsWhatIsThereAndAddsWhatIsMissing) {
    const StoreKind kind = newKind();
    EXPECT_NE("", host::prepareKeptStore(kind, defaults).value()) << "a new store is worth a word";
    EXPECT_TRUE(Store(kind).update(R"({"a":{"x":5},"list":["root","bob"],"own":true})"));
    EXPECT_EQ("",
              host::prepareKeptStore(kind, R"({"a":{"x":1,"z":3},"list":["root"],"own":{"leaf":1},"b":0})").value());
    EXPECT_EQ(R"({"a":{"x":5,"y":2,"z":3},"b":0,"list":["root","bob"],"own":true})", contentOf(kind));
    EXPECT_TRUE(host::prepareFreshStore(kind, R"({"fresh":1})"));
    EXPECT_EQ(R"({"fresh":1})", contentOf(kind));
    struct stat status = {};
    for (const std::string& path : {kind.databasePath(), kind.sharedStatePath()}) {
        ASSERT_EQ(0, stat(path.c_str(), &status));
        EXPECT_EQ(0600U, status.st_mode & 0777U) << path;
    }
}

TEST(Preparation, SetsADamagedFileAside) {
    const std::pair<const char*, void (*)(const StoreKind&)> damages[] = {
        {"no database", [](const StoreKind& kind) { host::replaceFile(kind.databasePath(), "settings?"); }},
        {"header", [](const StoreKind& kind) { overwrite(kind.databasePath(), 0, 100); }},
        {"page", [](const StoreKind& kind) { overwrite(kind.databasePath(), 1024 + 8, 600); }},
        {"cut", [](const StoreKind& kind) { std::filesystem::resize_file(kind.databasePath(), 1500); }},
        {"other table", [](const StoreKind& kind) { runSql(kind, "DROP TABLE leaf; CREATE TABLE leaf(x)"); }},
    };
    for (const auto& [name, damage] : damages) {
        const StoreKind kind = newKind();
        ASSERT_TRUE(host::prepareKeptStore(kind, defaults));
        ASSERT_TRUE(Store(kind).update(R"({"a":{"x":5}})"));
        damage(kind);
        const std::string damaged = host::readFile(kind.databasePath()).value();
        const std::string remark = host::prepareKeptStore(kind, defaults).value_or("(failed)");
        const std::size_t aside = remark.find(kind.databasePath() + ".corrupt-");
        ASSERT_NE(std::string::npos, aside) << name << ": " << remark;
        EXPECT_EQ(damaged, host::readFile(remark.substr(aside, remark.find(',', aside) - aside))) << name;
        EXPECT_EQ(defaults, contentOf(kind)) << name;
    }
    // Nothing in it is nothing damaged.
    const StoreKind empty = newKind();
    ASSERT_TRUE(host::replaceFile(empty.databasePath(), ""));
    EXPECT_EQ("", host::prepareKeptStore(empty, defaults));
    EXPECT_EQ(defaults, contentOf(empty));
}

/// Each tells the operator nothing false: an update fails, tells why, and announces nothing.
void expectRefusal(Store& store, int error) {
    takePublished();
    errno = 0;
    EXPECT_FALSE(store.update(R"({"a":{"x":9}})"));
    EXPECT_EQ(error, errno) << std::strerror(errno);
    EXPECT_TRUE(takePublished().empty());
}

TEST(Damage, OfARunningStoreIsNoConfirmation) {
    const StoreKind kind = newStore(defaults, host::Durability::powerCut);
    overwrite(kind.databasePath(), 1024 + 8, 600);
    Store store(kind);
    expectRefusal(store, EBADMSG);
    EXPECT_EQ(std::nullopt, store.readText("{}"));
    EXPECT_NE(std::string::npos, logText().find(kind.databasePath() + ": database disk image is malformed"));
}

TEST(Damage, AFullDiskStoresNothingAndIsOverWithIt) {
    const StoreKind kind = newStore(defaults, host::Durability::powerCut);
    Store store(kind);
    ASSERT_TRUE(store.update(R"({"a":{"x":2}})"));
    {
        const FullDisk fullDisk;
        expectRefusal(store, ENOSPC);
        // A long one fails on the way to where it is committed.
        EXPECT_FALSE(store.update((R"({"b":")" + std::string(20'000, 'y') + R"("})").c_str()));
        EXPECT_TRUE(takePublished().empty());
        EXPECT_EQ(R"({"a":{"x":2,"y":2},"list":["root"]})", store.readText("{}"));
    }
    EXPECT_TRUE(store.update(R"({"a":{"x":9}})"));
    EXPECT_EQ(R"({"a":{"x":9,"y":2},"list":["root"]})", contentOf(kind));
}

}  // namespace
