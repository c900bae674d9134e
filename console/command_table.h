/// The command table: every command is one row, and the first row that fits a line takes it.
#pragma once

#include "console/command_entry.h"

#include <span>

/// All 130 rows in their order. Constant; any thread may walk it.
std::span<const CommandEntry> commandTable();

/// The first row whose name `text` begins with; null when there is none. What follows the name is not looked at.
const CommandEntry* findCommand(const char* text);

/// The first row whose template holds `matchText`; null when there is none.
const CommandEntry* findLeaf(const char* matchText);
