/// Service work on the whole device. The upgrade service and the system service do it; the console gives the orders.
#pragma once

#include "command/command.h"

/// Mreset: back to the default settings. The consoles print the reset when the upgrade service reports it.
void resetToDefaults(const Command& command);

/// Reboot, announced to the upgrade service; with an argument it is refused in words and carried out all the same,
/// unannounced.
void rebootDevice(const Command& command);

/// Update: starts a firmware update unless one is running.
void updateFirmware(const Command& command);
