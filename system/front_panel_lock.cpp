#include "system/front_panel_lock.h"

#include "settings/write_path.h"
#include "text/text.h"

void setLock(const Command& command) {
    if (equals(command.line, "Lock sta")) return printLine(command.rowName);
    if (!equals(command.line, command.rowName)) return reject(command);
    const bool isLocked = equals(command.rowName, "Lock");
    if (writeBoolean(command, isLocked, {.reportWriteFailure = perrorWriteFailure})) printLine(command.rowName);
}
