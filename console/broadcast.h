/// The setting that decides who shows a change: every console, or only the one that made it.
#pragma once

#include "settings/leaf.h"

inline constexpr char broadcastLeaf[] = R"({"system":{"broadcast":%s}})";

/// Asks the settings store; off where it cannot be read.
inline bool isBroadcastOn() { return readBoolean(broadcastLeaf).value_or(0) == 1; }
