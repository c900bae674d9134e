/// The process that runs the device.
#pragma once

#include <string>

namespace host {

/// Path of the file that the device's process keeps locked (flock) while it runs, with its process id as text in it.
std::string deviceLockPath();

/// Sends `signal` to the process that runs this root's device. False with errno set; ESRCH when none does.
bool signalDevice(int signal);

}  // namespace host
