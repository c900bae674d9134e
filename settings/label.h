/// The text that the device shows on its output when it starts.
#pragma once

#include "command/family.h"

/// A text in brackets up to the first "]", cut to the family's range silently.
void setLabel(const Command& command);

/// "name[label]", the label travelling as blank-separated hexadecimal character codes ("48 69" is Hi). "%%" in it is a
/// percent sign; any other conversion stands for nothing.
void printLabel(const Change& change);

inline constexpr Family label{.action = setLabel, .printer = printLabel, .kind = LeafKind::text, .range = {0, 30}};
