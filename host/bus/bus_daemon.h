/// The device's own dbus-daemon.
#pragma once

#include <string>
#include <vector>

namespace host {

/// The words that run the bus in the foreground, with the device root as the working folder. It listens on busPath(),
/// lets in its own user only, and writes a line to `readyDescriptor` when it does. Writes its configuration file;
/// empty with errno set when that failed.
std::vector<std::string> busCommand(int readyDescriptor);

}  // namespace host
