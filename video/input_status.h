/// Whether the two inputs carry a connected source.
#pragma once

#include "command/command.h"

/// "InputStatus 10": first the HDBaseT, then the HDMI input, each 0 where it cannot be read.
void printBothInputs();

/// printBothInputs(), whatever the argument.
void reportBothInputs(const Command& command);

/// "InputStatus2 1" for the input that the row's name ends in; takes no argument.
void reportInput(const Command& command);

/// Shows a changed connection in the form of the row, while the setting `system.inputBroadcast` is on.
void printInputStatus(const char* rowName, const ChangedValue& value);
