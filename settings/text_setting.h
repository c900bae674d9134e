/// Settings that store a text as it was typed.
#pragma once

#include "command/family.h"

/// A dotted address in any form that the standard parser takes, or "sta".
void setAddress(const Command& command);

/// Any text but the empty one; more than the family's range is cut off silently. There is no "sta".
void setCutText(const Command& command);

/// Any text of a length within the family's range. There is no "sta".
void setShortText(const Command& command);

/// Shows the stored text whatever the argument.
void reportText(const Command& command);

inline constexpr Family dottedAddress{.action = setAddress, .printer = printText, .kind = LeafKind::text};

template <int longest>
inline constexpr Family cutText{
    .action = setCutText, .printer = printText, .kind = LeafKind::text, .range = {1, longest}};

template <int longest>
inline constexpr Family shortText{
    .action = setShortText, .printer = printText, .kind = LeafKind::text, .range = {0, longest}};

/// Another row of the same leaf prints its changes.
inline constexpr Family textReport{.action = reportText, .kind = LeafKind::text};
