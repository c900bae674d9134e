#include "settings/switch_setting.h"

#include "text/text.h"

namespace {

void reportSwitch(const Command& command, const SwitchRules& rules) {
    const std::optional<int> stored = readBoolean(command.leaf);
    if (stored == 0 || stored == 1) printSetting(command.rowName, onOff((*stored == 1) != rules.inverted));
}

void changeSwitch(Command command, bool on, const SwitchRules& rules) {
    command.broadcast = command.broadcast || rules.neverConfirms;
    if (writeBoolean(command, on != rules.inverted)) printSetting(command.rowName, onOff(on));
}

}  // namespace

void setSwitch(const Command& command, const SwitchRules& rules) {
    if (equals(command.argument, "sta")) return reportSwitch(command, rules);
    const bool on = equals(command.argument, "on");
    if (!on && !equals(command.argument, "off")) return reject(command);
    if (rules.gate != nullptr && !rules.gate()) return reject(command);
    changeSwitch(command, on, rules);
}
