/// The device in memory as every input finds it.
#pragma once

#include "tests/double/platform_double.h"

#include <map>

namespace fuzz {

/// Every leaf that a command reads or writes has a value, broadcast is off, nothing fails.
void resetDevice();

/// Path and value, as JSON text, of each leaf. An array is a leaf.
using Leaves = std::map<std::string, std::string>;

Leaves leavesOf(const std::string& document);

/// Of both stores.
Leaves storedLeaves();

}  // namespace fuzz
