/// The process that runs the device.
#pragma once

#include "host/base/unique_fd.h"

#include <string>

namespace host {

/// Path of the file that the device's process keeps locked while it runs: the kernel knows which process that is.
std::string deviceLockPath();

/// Sends `signal` to the process that runs this root's device. False with errno set; ESRCH when none does.
bool signalDevice(int signal);

/// Makes this process the one that runs this root's device, for as long as the descriptor is open. None with errno
/// set; EWOULDBLOCK when another process runs it.
UniqueFd becomeDevice();

}  // namespace host
