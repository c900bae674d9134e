/// What the device is.
#pragma once

#include "command/family.h"
#include "text/fixed_text.h"

/// System sta: one item a line; System dev: all items in one line for programs, each at its fixed place.
void reportSystem(const Command& command);

/// Version followed directly by nothing, MCU, TRRX, 977 or 1830: the version of that part.
void reportVersion(const Command& command);

/// Type: the name of the model.
void reportModel(const Command& command);

inline constexpr char modelLeaf[] = R"({"system":{"model":"%s"}})";

/// The model's leaf has no printer: a change of it shows nothing.
inline constexpr Family modelReport{.action = reportModel, .kind = LeafKind::text};

/// `seconds`, of which the fraction is dropped, as "dd HH:mm:ss". A span that no clock can show counts as none.
FixedText<64> formatUptime(double seconds);
