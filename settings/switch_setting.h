/// Settings with the words "on", "off" and "sta" over a stored truth value.
#pragma once

#include "command/command.h"
#include "settings/write_path.h"

struct SwitchRules {
    bool inverted = false;       ///< "on" stores false
    bool neverConfirms = false;  ///< acts as with broadcast on whatever it is: only the listener shows the change
    Gate gate = nullptr;         ///< asked before a change
};

inline constexpr SwitchRules straightSwitch{};

void setSwitch(const Command& command, const SwitchRules& rules);

template <const SwitchRules& rules = straightSwitch>
void setSwitch(const Command& command) {
    setSwitch(command, rules);
}
