#include "benchmarks/sync_log.h"

#include <fstream>

namespace bench {

SyncLog::SyncLog(const Bench& bench, std::chrono::microseconds delay)
    : library_(bench.programs / "libsync_probe.so"), path_(bench.device.root() / "syncs"), delay_(delay) {
    const std::ofstream empty(path_);
}

Program SyncLog::watch(Program program) const {
    program.environment.push_back("LD_PRELOAD=" + library_.string());
    program.environment.push_back("SYNC_LOG=" + path_.string());
    program.environment.push_back("SYNC_DELAY=" + std::to_string(delay_.count()));
    return program;
}

std::uintmax_t SyncLog::count() const { return std::filesystem::file_size(path_); }

}  // namespace bench
