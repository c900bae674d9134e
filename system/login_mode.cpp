#include "system/login_mode.h"

#include "settings/feedback_printers.h"
#include "settings/write_path.h"
#include "text/text.h"

#include <cstdlib>

namespace {

void reportLoginMode(const Command& command) {
    const std::optional<int> on = readBoolean(command.leaf);
    if (on) printOnOff(command.rowName, {.number = *on});
}

void endAllConsoles() {
    // The program names of all console ports contain "cmdd". This console does not live to see the result.
    // NOLINTNEXTLINE(cert-env33-c): the line is fixed
    [[maybe_unused]] const int status = std::system("killall *cmdd");
}

}  // namespace

void setLoginMode(const Command& command) {
    if (equals(command.argument, "sta")) return reportLoginMode(command);
    const bool on = equals(command.argument, "on");
    if (!on && !equals(command.argument, "off")) return reject(command);
    if (!writeBoolean(command, on)) return;
    printSetting(command.rowName, onOff(on));
    endAllConsoles();
}
