/// Counts the syncs of consoles and slows them down, by a library that is preloaded into them.
#pragma once

#include "benchmarks/measurements.h"

#include <chrono>
#include <cstdint>

namespace bench {

class SyncLog {
  public:
    explicit SyncLog(const Bench& bench, std::chrono::microseconds delay = {});

    /// The program with the library preloaded.
    Program watch(Program program) const;

    /// The syncs so far of all watched programs.
    std::uintmax_t count() const;

  private:
    std::filesystem::path library_;
    std::filesystem::path path_;
    std::chrono::microseconds delay_;
};

}  // namespace bench
