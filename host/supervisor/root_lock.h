/// The right to be the one device of a root.
#pragma once

#include "host/loop/unique_fd.h"

#include <optional>
#include <string>

namespace host {

class RootLock {
  public:
    /// Locks the current device root and leaves the process id in its lock file. None, with the reason on standard
    /// error, when another device runs there.
    static std::optional<RootLock> take();

  private:
    explicit RootLock(UniqueFd file) : file_(std::move(file)) {}

    UniqueFd file_;
};

}  // namespace host
