/// The button that stands for the display's own: power, mute and volume over the configured control type.
#pragma once

#include "command/command.h"

/// "on", "off" and "tog" store the power word and confirm it, on all consoles when broadcast is on; "sta" shows it.
/// "mute", "vol+" and "vol-" send the stored string, or with CEC the word.
void pressDisplayButton(const Command& command);
