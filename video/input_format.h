/// The timing and colour format that an input receives: "InputFormat1 1920x1080p60:8bit:RGB".
#pragma once

#include "command/command.h"

/// Shows the format of the input that the row's name ends in, "--:--:--" without a stable timing; takes no argument.
/// What cannot be read shows as 0 or nothing.
void reportInputFormat(const Command& command);

/// The same when the stability of the timing changed.
void printInputFormat(const char* rowName, const ChangedValue& value);
