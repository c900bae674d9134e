#include "system/front_panel_lock.h"

#include "settings/write_path.h"
#include "text/text.h"

namespace {

void setLock(const Command& command, bool isLocked) {
    if (!equals(command.line, command.rowName)) return reject(command);
    const bool unchanged = readBoolean(command.leaf).value_or(0) == static_cast<int>(isLocked);
    const WriteRules rules = {.reportWriteFailure = perrorWriteFailure};
    if (writeSetting(command, fillBoolean(command.leaf, isLocked), unchanged, rules)) printLine(command.rowName);
}

}  // namespace

void lockFrontPanel(const Command& command) {
    if (equals(command.line, "Lock sta")) return printLine(command.rowName);
    setLock(command, true);
}

void unlockFrontPanel(const Command& command) { setLock(command, false); }
