/// The lock of the keys on the front panel.
#pragma once

#include "command/command.h"

/// Lock, Unlock, and "Lock sta", which answers "Lock" whatever the state. The whole line must read so.
void setLock(const Command& command);
