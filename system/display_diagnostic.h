/// Zebulax: a hidden diagnostic.
#pragma once

#include "command/command.h"

/// on | off: asks the display daemon for its diagnostic picture and says so on standard error. Silent otherwise, on a
/// wrong argument as well.
void runDiagnostic(const Command& command);
