/// The CEC commands that are stored for the display.
#pragma once

#include "command/command.h"

/// Has the inter-MCU daemon send the command of the word. A failed call goes to standard error.
void callCec(const char* word);

/// "on", "off", "vol+", "vol-" or "mute": sends the command and announces the word without storing it.
void triggerCec(const Command& command);
