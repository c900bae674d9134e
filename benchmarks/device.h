/// A host device of the benchmarks' own.
#pragma once

#include "benchmarks/session.h"

#include <filesystem>
#include <string>
#include <sys/types.h>

namespace bench {

class Device {
  public:
    /// Starts the supervisor of the build in `build` on `root`, which is emptied, and waits until it is ready. Throws
    /// std::runtime_error when it does not get so far.
    Device(const std::filesystem::path& build, std::filesystem::path root);

    /// Stops the device and waits for its end.
    ~Device();

    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// The console program as the launcher starts it.
    host::ProgramStart console() const;

    const std::filesystem::path& root() const { return root_; }

    /// The telnet port on 127.0.0.1.
    int port() const { return port_; }

  private:
    std::filesystem::path root_;
    pid_t pid_ = -1;
    int port_ = 0;
};

}  // namespace bench
