/// The folders and links of a device root.
#pragma once

#include <string>

namespace host {

/// Makes the current device root where it is missing, open to nobody else. False, with the reason on standard error,
/// also for a folder that holds something else.
bool makeRoot();

/// Makes the folders of the root and the links to the programs, and begins the run's logs. False with the reason on
/// standard error.
bool layOutRoot();

/// The path of a program of the device, which stands in the same folder as this one.
std::string programPath(const char* name);

}  // namespace host
