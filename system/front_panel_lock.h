/// The lock of the keys on the front panel.
#pragma once

#include "settings/command.h"

/// Lock and "Lock sta", which answers "Lock" whatever the state. The whole line must read so.
void lockFrontPanel(const Command& command);

/// Unlock; the whole line must read so.
void unlockFrontPanel(const Command& command);
