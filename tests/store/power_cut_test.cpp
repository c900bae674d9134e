#include "host/base/atomic_file.h"
#include "host/store/preparation.h"
#include "tests/store/file_writes.h"
#include "tests/store/numbered_tree.h"
#include "tests/store/test_root.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <optional>
#include <random>
#include <unistd.h>

namespace {

using host::Durability;
using host::Store;
using host::StoreKind;

constexpr const char* endings[] = {"", "-wal"};
constexpr int updates = 40;
constexpr int updatesPerCheckpoint = 7;

/// What becomes of a write that no sync has followed when the power fails.
using Fate = bool (*)(std::mt19937&);
constexpr Fate fates[] = {[](std::mt19937&) { return true; }, [](std::mt19937&) { return false; },
                          [](std::mt19937& random) { return random() % 2 == 0; }};

/// A disk that writes what it was given, in any order, before it is told to sync.
class Disk {
  public:
    explicit Disk(const StoreKind& kind) {
        for (const char* ending : endings) {
            const std::string path = kind.databasePath() + ending;
            files_[path] = host::readFile(path).value_or("");
        }
    }

    void take(const FileWrite& write) {
        if (write.kind != FileWrite::Kind::sync) return waiting_.push_back(write);
        const auto isSynced = [&write](const FileWrite& other) { return other.path == write.path; };
        for (const FileWrite& other : waiting_)
            if (isSynced(other)) apply(files_, other);
        std::erase_if(waiting_, isSynced);
    }

    /// What is found after the power was cut, as the files of `kind`, whose own are `original`'s.
    void cutPower(const StoreKind& original, const StoreKind& kind, Fate fate, std::mt19937& random) const {
        Files files = files_;
        for (const FileWrite& write : waiting_)
            if (fate(random)) apply(files, write);
        for (const char* ending : {"-shm", "-wal"}) unlink((kind.databasePath() + ending).c_str());
        for (const char* ending : endings)
            std::ofstream(kind.databasePath() + ending) << files[original.databasePath() + ending];
    }

  private:
    using Files = std::map<std::string, std::string>;

    static void apply(Files& files, const FileWrite& write) {
        std::string& file = files[write.path];
        const auto begin = static_cast<std::size_t>(write.offset);
        if (write.kind == FileWrite::Kind::length) return file.resize(begin);
        file.resize(std::max(file.size(), begin + write.bytes.size()));
        file.replace(begin, write.bytes.size(), write.bytes);
    }

    Files files_;
    std::vector<FileWrite> waiting_;
};

/// The zeros that make the log's file long in advance.
bool isRoomAlone(const FileWrite& write) {
    return write.kind == FileWrite::Kind::data && write.bytes.find_first_not_of('\0') == std::string::npos;
}

TEST(PowerCut, AtAnyMomentLeavesWhatWasConfirmed) {
    const StoreKind kind = newStore(treeOf(0, -1).c_str(), Durability::powerCut), found = newKind(Durability::powerCut);
    Disk disk(kind);
    std::vector<std::size_t> confirmations;  // of each document: how many writes there were
    std::optional<WriteRecording> recording(std::in_place);
    Store store(kind);
    for (int number = 0; number < updates; ++number) {
        ASSERT_TRUE(store.update(treeOf(0, number).c_str()));
        confirmations.push_back(recording->writes().size());
        ASSERT_TRUE(number % updatesPerCheckpoint != 0 || store.checkpoint());
    }
    const std::vector<FileWrite> writes = recording->writes();
    recording.reset();
    ASSERT_GT(writes.size(), 3U * updates);
    ASSERT_TRUE(std::any_of(writes.begin(), writes.end(), isRoomAlone));

    std::mt19937 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same cuts in every run
    for (std::size_t done = 0; done < writes.size(); ++done) {
        disk.take(writes[done]);
        if (isRoomAlone(writes[done]) && done % 16 != 0) continue;  // there is much of it, one page like the other
        const auto unconfirmed = std::upper_bound(confirmations.begin(), confirmations.end(), done + 1);
        for (const Fate fate : fates) {
            disk.cutPower(kind, found, fate, random);
            ASSERT_EQ("", host::prepareKeptStore(found, "{}")) << "after " << done + 1 << " writes";
            expectWhatWasConfirmed(found, 0, static_cast<int>(unconfirmed - confirmations.begin()) - 1);
        }
        ASSERT_FALSE(HasFailure()) << "after " << done + 1 << " writes";
    }
}

}  // namespace
