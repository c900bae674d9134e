#include "system/debug_switch.h"

#include "command/service_call.h"
#include "platform/shell.h"
#include "platform/user_status.h"
#include "settings/change_lock.h"
#include "settings/write_path.h"
#include "text/text.h"

namespace {

void setDebug(const Command& command, bool on) {
    printLine(on ? "debug on" : "debug off");
    if (user_status_update(fillBoolean(command.leaf, on).c_str()) != 0) logWriteFailure();
    lsystem(on ? "/mnt/mtd/bin/apploggertool -a console debug" : "/mnt/mtd/bin/apploggertool -d");
}

void setChipDebug(const Command& command, bool on) {
    if (!updateSettings(fillBoolean(command.leaf, on))) logWriteFailure();
    // Relative to the working folder, unlike above; kept on purpose.
    lsystem(on ? "mnt/mtd/bin/apploggertool -a console debug" : "mnt/mtd/bin/apploggertool -d");
}

}  // namespace

void switchDebug(const Command& command) {
    if (equals(command.argument, "on")) return setDebug(command, true);
    if (equals(command.argument, "off")) return setDebug(command, false);
    if (!equals(command.argument, "MCU")) return reject(command);
    callService("intermcud", "debugMCU", "On");
    printLine(command.line);
}

void toggleChipDebug(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    ChangeLock lock;
    if (!lock) return reject(command);
    const bool on = readBoolean(command.leaf).value_or(0) == 0;
    setChipDebug(command, on);
    lock.release();
    printLine(on ? "Into 977 Debug Mode..." : "Leave 977 Debug Mode...");
}
