/// The list of the LPC calls that the device's services have received since its start.
#pragma once

#include <string>

namespace host {

/// Path of the list: one call a line. The device empties it at its start.
std::string callLogPath();

/// "call SERVICE METHOD TEXT", the text made visible.
std::string describeCall(const char* service, const char* method, const char* text);

}  // namespace host
