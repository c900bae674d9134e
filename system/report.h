/// What the device is.
#pragma once

#include "command/command.h"

/// System sta: one item a line; System dev: all items in one line for programs, each at its fixed place.
void reportSystem(const Command& command);

/// Version followed directly by nothing, MCU, TRRX, 977 or 1830: the version of that part.
void reportVersion(const Command& command);

/// Type: the name of the model.
void reportModel(const Command& command);
