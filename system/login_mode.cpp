#include "system/login_mode.h"

#include "settings/feedback_printers.h"
#include "settings/write_path.h"
#include "text/text.h"

#include <cstdlib>

namespace {

void showLoginMode(const Command& command) {
    const std::optional<int> on = readBoolean(command.leaf);
    if (on) printOnOff(command.rowName, {.number = *on});
}

void endAllConsoles() {
    // The program names of all console ports contain "cmdd". This console does not live to see the result.
    [[maybe_unused]] const int status = std::system("killall *cmdd");
}

}  // namespace

void setLoginMode(const Command& command) {
    if (equals(command.argument, "sta")) return showLoginMode(command);
    const bool on = equals(command.argument, "on");
    if (!on && !equals(command.argument, "off")) return reject(command);
    const bool unchanged = readBoolean(command.leaf).value_or(0) == static_cast<int>(on);
    if (!writeSetting(command, fillBoolean(command.leaf, on), unchanged)) return;
    printSetting(command.rowName, onOff(on));
    endAllConsoles();
}
