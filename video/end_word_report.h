#pragma once

#include "command/family.h"

/// Shows a stored end word of the display's control strings: "[vol+]", in any case, answers "SetEnd vol+[CR]".
/// Nothing when it cannot be read. No row offers it yet.
void reportEndWord(const Command& command);
