/// Which of the five sources the output shows.
#pragma once

#include "command/command.h"

/// Switches to the source in the row's name ("x3AVx1" is 3). The line must be that name and nothing more.
void switchSource(const Command& command);

/// "x3AVx1": the stored source; takes no argument.
void reportOutput(const Command& command);

/// Prints the source, then the connections of both inputs. Numbers above 9 are cut: "x12AVx".
void printSource(const char* rowName, const ChangedValue& value);
