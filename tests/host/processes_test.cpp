#include "host/base/device_root.h"
#include "host/store/defaults.h"
#include "host/store/preparation.h"
#include "platform/user_config.h"
#include "tests/host/children.h"
#include "tests/host/file_writes.h"
#include "tests/host/numbered_tree.h"
#include "tests/host/test_root.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace {

using host::Durability;
using host::Store;
using host::StoreKind;
using namespace std::chrono_literals;

TEST(Durability, CostsOneSyncASet) {
    const StoreKind kind = newStore(R"({"a":0})", Durability::powerCut);
    Store store(kind);
    // The log has its room and the checkpoint is over: from here on it is the same for every set.
    for (const char* document : {R"({"a":1})", R"({"a":2})"}) ASSERT_TRUE(store.update(document));
    ASSERT_TRUE(store.checkpoint());
    ASSERT_TRUE(store.update(R"({"a":3})"));
    const auto logLength = std::filesystem::file_size(kind.databasePath() + "-wal");
    syncs = 0;
    for (int i = 10; i < 20; ++i) ASSERT_TRUE(store.update((R"({"a":)" + std::to_string(i) + "}").c_str()));
    EXPECT_EQ(10, syncs);
    ASSERT_TRUE(store.update(R"({"a":19})"));
    EXPECT_EQ(10, syncs) << "an unchanged value";
    EXPECT_EQ(logLength, std::filesystem::file_size(kind.databasePath() + "-wal")) << "a longer file takes longer";

    Store status(newStore(R"({"a":0})", Durability::process));
    syncs = 0;
    ASSERT_TRUE(status.update(R"({"a":1})"));
    EXPECT_EQ(0, syncs);
}

/// Whether the kernel tells the heir of a lock that its holder died, which emulators of one program do not.
bool hasRobustMutexes() {
    void* head = nullptr;
    std::size_t length = 0;
    return syscall(SYS_get_robust_list, 0, &head, &length) == 0;
}

using Confirmed = std::array<std::atomic<int>, 3>;

/// Never ends by itself unless a write fails.
void writeOn(const StoreKind& kind, std::size_t writer, std::atomic<int>& confirmed) {
    Store store(kind);
    for (int number = confirmed + 1; store.update(treeOf(writer, number).c_str()); ++number) confirmed = number;
}

TEST(Writers, KilledAtAnyMomentLeaveWholeDocuments) {
    if (!hasRobustMutexes()) GTEST_SKIP() << "no robust mutexes, as under an emulator of one program";
    const char* const wanted = std::getenv("STORE_KILLS");
    const unsigned long kills = wanted != nullptr ? std::strtoul(wanted, nullptr, 10) : 40;
    const StoreKind kind = newStore("{}", Durability::powerCut);
    auto& confirmed = sharedWithChildren<Confirmed>();
    std::array<pid_t, std::tuple_size_v<Confirmed>> writers;
    const auto start = [&](std::size_t i) { writers[i] = startChild([&, i] { writeOn(kind, i, confirmed[i]); }); };
    for (std::size_t i = 0; i < writers.size(); ++i) start(i);

    std::mt19937 random(kills);
    for (unsigned i = 0; i < kills; ++i) {
        const std::size_t victim = i % writers.size();
        const int before = confirmed[victim];
        while (confirmed[victim] == before && isRunning(writers[victim])) std::this_thread::yield();
        const auto moment = std::chrono::steady_clock::now() + std::chrono::microseconds(random() % 8000);
        while (std::chrono::steady_clock::now() < moment) std::this_thread::yield();
        kill(writers[victim], SIGKILL);
        ASSERT_EQ(SIGKILL, statusOf(writers[victim])) << "a write failed";
        expectWhatWasConfirmed(kind, victim, confirmed[victim]);
        start(victim);
    }
    for (std::size_t i = 0; i < writers.size(); ++i) {
        kill(writers[i], SIGKILL);
        statusOf(writers[i]);
    }
    for (std::size_t i = 0; i < writers.size(); ++i) expectWhatWasConfirmed(kind, i, confirmed[i]);
    host::Database database(kind.databasePath(), kind.durability);
    EXPECT_TRUE(database.open() && database.isSound());
}

TEST(Writers, WaitForLongerThanTheLimitWhileTurnsAreTaken) {
    host::WriteLock lock;
    std::atomic<int> turns = 0;
    const auto write = [&] {
        if (lock.acquire(1s) == host::WriteLock::Outcome::failed) return;
        std::this_thread::sleep_for(200ms);  // the last of eight waits above the limit
        ++turns;
        lock.release();
    };
    {
        std::array<std::jthread, 8> writers;
        for (std::jthread& writer : writers) writer = std::jthread(write);
    }
    EXPECT_EQ(8, turns);
}

TEST(Writers, InheritTheTurnOfOneThatDied) {
    if (!hasRobustMutexes()) GTEST_SKIP() << "no robust mutexes, as under an emulator of one program";
    const StoreKind kind = newStore(R"({"a":1})");
    auto& isInTurn = sharedWithChildren<std::atomic<bool>>();
    host::SharedState& state = *host::mapSharedState(kind.sharedStatePath());
    const pid_t holder = startChild([&] {
        state.writeLock.acquire(1s);
        state.changes.unsettle(host::ChangeCounters::indexesOf({"/a", "/b"}));
        isInTurn = true;
        pause();
    });
    while (!isInTurn) std::this_thread::yield();
    EXPECT_EQ(host::WriteLock::Outcome::failed, state.writeLock.acquire(50ms));
    EXPECT_EQ(ETIMEDOUT, errno);
    Store store(kind);
    EXPECT_EQ(1, readInt(store, R"({"a":0})")) << "readers wait for nobody";

    kill(holder, SIGKILL);
    statusOf(holder);
    EXPECT_TRUE(store.update(R"({"a":2})"));
    EXPECT_EQ(2, readInt(store, R"({"a":0})"));
    for (const char* path : {"/a", "/b"}) {
        EXPECT_TRUE(host::ChangeCounters::isSettled(state.changes[host::ChangeCounters::indexOf(path)]));
    }
}

TEST(Readers, SeeWhatAnotherProcessHasConfirmed) {
    constexpr int last = 3000;
    const StoreKind kind = newStore(R"({"a":{"x":0}})");
    auto& confirmed = sharedWithChildren<std::atomic<int>>();
    const pid_t writer = startChild([&] {
        Store store(kind);
        for (int i = 1; i <= last; ++i) {
            EXPECT_TRUE(store.update((R"({"a":{"x":)" + std::to_string(i) + "}}").c_str()));
            confirmed = i;
        }
    });
    Store store(kind);
    const auto readOn = [&] {
        for (int before = 0; before < last;) {
            const int expected = std::max<int>(before, confirmed);
            before = readInt(store, R"({"a":{"x":0}})");
            ASSERT_GE(before, expected);
        }
    };
    std::thread other(readOn);
    readOn();
    other.join();
    EXPECT_EQ(0, statusOf(writer));
}

TEST(Fork, CarriesNoConnectionAcross) {
    ASSERT_TRUE(host::prepareKeptStore(host::settingsKind, host::defaultSettings));
    ASSERT_EQ(0, user_config_update(R"({"forked":{"parent":1}})"));
    const Store* const parents = &host::settingsStore();
    const pid_t child = startChild([parents] {
        EXPECT_NE(parents, &host::settingsStore());
        int value = 0;
        EXPECT_NE(0, user_config_query_int(R"({"forked":{"parent":0}})", &value));
        EXPECT_EQ(0, user_config_update(R"({"forked":{"child":2}})"));
    });
    EXPECT_EQ(0, statusOf(child));
    int value = 0;
    EXPECT_NE(0, user_config_query_int(R"({"forked":{"child":0}})", &value));
    EXPECT_EQ(2, value);
}

}  // namespace
