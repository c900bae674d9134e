/// How the device's own dbus-daemon is set up.
#pragma once

#include <string>

namespace host {

/// Writes the configuration into the device root and returns its path, for `dbus-daemon --nofork --config-file=PATH`;
/// empty with errno set when it could not be written. The daemon listens on busPath() and lets in its own user only.
std::string writeBusConfig();

}  // namespace host
