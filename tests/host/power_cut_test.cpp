#include "host/base/atomic_file.h"
#include "host/store/preparation.h"
#include "tests/host/file_writes.h"
#include "tests/host/numbered_tree.h"
#include "tests/host/test_root.h"

#include <unistd.h>

namespace {

using host::StoreKind;

constexpr const char* endings[] = {"", "-wal"};
constexpr int updatesPerCheckpoint = 7;

/// Makes the files of a store what is left of another's.
void restore(const Remains& left, const StoreKind& original, const StoreKind& kind) {
    for (const char* ending : {"-shm", "-wal"}) unlink((kind.databasePath() + ending).c_str());
    for (const char* ending : endings)
        ASSERT_TRUE(host::replaceFile(kind.databasePath() + ending, left.at(original.databasePath() + ending)));
}

TEST(PowerCut, BehindAnySyncLeavesWhatWasConfirmed) {
    const StoreKind kind = newStore(treeOf(0, -1).c_str(), host::Durability::powerCut);
    const StoreKind found = newKind(host::Durability::powerCut);
    std::vector<Remains> cuts(1);
    for (const char* ending : endings)
        cuts[0][kind.databasePath() + ending] = host::readFile(kind.databasePath() + ending).value_or("");
    std::vector<int> confirmed;  // the last document before each of them
    remains = &cuts;
    host::Store store(kind);
    for (int number = 0; number < 40; ++number) {
        ASSERT_TRUE(store.update(treeOf(0, number).c_str()));
        confirmed.resize(cuts.size(), number - 1);
        confirmed.back() = number;
        ASSERT_TRUE(number % updatesPerCheckpoint != 0 || store.checkpoint());
        confirmed.resize(cuts.size(), number);
    }
    remains = nullptr;
    ASSERT_GT(cuts.size(), 40U);
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        restore(cuts[i], kind, found);
        ASSERT_EQ("", host::prepareKeptStore(found, "{}")) << "behind sync " << i;
        expectWhatWasConfirmed(found, 0, confirmed[i]);
        ASSERT_FALSE(HasFailure()) << "behind sync " << i;
    }
}

}  // namespace
