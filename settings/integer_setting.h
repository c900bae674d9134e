/// Settings that store one number typed in decimal digits, with "sta" to show it.
#pragma once

#include "command/command.h"
#include "settings/write_path.h"

/// Accepted values, both ends included.
struct Range {
    int first;
    int last;

    constexpr bool holds(int value) const { return value >= first && value <= last; }
};

/// A number without a sign. `gate`, where there is one, is asked before a change.
void setInteger(const Command& command, Range range, Gate gate);

/// A number that may begin with "-", or "+" or "-" alone for one step up or down. A step beyond the range answers with
/// the limit and stores nothing.
void setSteppedInteger(const Command& command, Range range);

template <Range range, Gate gate = nullptr>
void setInteger(const Command& command) {
    setInteger(command, range, gate);
}

template <Range range>
void setSteppedInteger(const Command& command) {
    setSteppedInteger(command, range);
}
