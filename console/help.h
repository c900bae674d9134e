#pragma once

#include "command/command.h"

/// "help" and "techelp": the operator's or the technician's list of words; with a command's name its help text.
void helpAction(const Command& command);
