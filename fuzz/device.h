/// The device in memory as every input finds it.
#pragma once

#include "tests/double/platform_double.h"

namespace fuzz {

/// Every leaf that a command reads or writes has a value, broadcast is off, nothing fails.
void resetDevice();

/// The settings' paths and kinds of value, one a line. Arrays are values.
std::string settingsShape();

}  // namespace fuzz
