/// Shows all processes of the device, without a system call, that a leaf may have changed.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace host {

/// Lives in memory that all processes share. Leaves share the counters; one that shares its counter with a changed leaf
/// is read anew without need, which harms nobody. (With one counter for all of them, every change would cost every
/// console a look into the database before it shows it: 25,000 instructions.)
///
/// Each counter is a sequence lock (seqlock): a writer, alone among writers, makes the counters of its leaves odd
/// before its change can be seen and even again after it. Whoever reads the same even count before and after reading a
/// value may keep it while that count lasts.
class ChangeCounters {
  public:
    using Count = std::uint32_t;
    using Index = std::uint32_t;

    static Index indexOf(const std::string& path);

    Count operator[](Index index) const { return counts_[index].load(); }

    static bool isSettled(Count count) { return count % 2 == 0; }

    /// The counters of `paths`, each once.
    static std::vector<Index> indexesOf(const std::vector<std::string>& paths);

    /// Both around the moment at which a change becomes visible, for the same counters.
    void unsettle(const std::vector<Index>& indexes);
    void settle(const std::vector<Index>& indexes);

    /// Settles what a writer that died left unsettled.
    void settleAll();

  private:
    static constexpr Index size = 512;

    static_assert(std::atomic<Count>::is_always_lock_free);
    std::array<std::atomic<Count>, size> counts_{};
};

}  // namespace host
