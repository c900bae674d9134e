/// Switches for the log output of the device and its chips.
#pragma once

#include "command/command.h"

/// debug on | off: the device's log; debug MCU: the controller's.
void switchDebug(const Command& command);

/// dbg977: into and out of the debug mode of the 977 chip.
void toggleChipDebug(const Command& command);
