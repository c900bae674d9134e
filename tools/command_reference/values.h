/// The values that a row's family takes.
#pragma once

#include "console/command_entry.h"

#include <string>

/// "a number from 3 to 600, sta"; empty where the row belongs to no family of settings.
std::string valuesOf(const CommandEntry& row);

/// A line that sets such a value: another one than a new device has, where there is one. The row's name alone for a row
/// of no family.
std::string exampleValueOf(const CommandEntry& row);
