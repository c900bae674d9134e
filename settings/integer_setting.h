/// Settings that store one number typed in decimal digits, with "sta" to show it.
#pragma once

#include "command/family.h"

/// A number of the family's range, without a sign.
void setInteger(const Command& command);

/// A number that may begin with "-", or "+" or "-" alone for one step up or down. A step beyond the range answers with
/// the limit and stores nothing.
void setSteppedInteger(const Command& command);

template <int first, int last, Gate gate = nullptr>
inline constexpr Family integer{
    .action = setInteger, .printer = printInteger, .kind = LeafKind::number, .range = {first, last}, .gate = gate};

template <int first, int last>
inline constexpr Family steppedInteger{
    .action = setSteppedInteger, .printer = printInteger, .kind = LeafKind::number, .range = {first, last}};
