/// The device log's place and what is written to it, for those who run the device and for the logger tool.
#pragma once

#include <string_view>

namespace host {

/// Makes the log's folder and switches below the device root, at their defaults, and begins a new device.log; the last
/// one becomes device.log.1. Once, before any other process of the device. False with errno set on failure.
bool prepareLog();

/// Lets lines of `category` ("console") up to `level` through, in all running processes of the device. False with
/// errno set when there is no such category or the switches are out of reach.
bool setLogLevel(std::string_view category, int level);

/// Puts every category back to its default. False with errno set on failure.
bool resetLogLevels();

}  // namespace host
