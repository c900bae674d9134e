#include "system/telnet_port.h"

#include "command/service_call.h"
#include "settings/change_lock.h"
#include "settings/write_path.h"
#include "text/text.h"

namespace {

void restartListener(int port) {
    FixedText<16> text;
    text.appendFormat("%d", port);
    callService("networkd", "TelnetRestart", text.c_str());
}

void reportTelnetPort(const Command& command) {
    const std::optional<int> port = readInteger(command.leaf);
    if (port) printSetting(command.rowName, *port);
}

}  // namespace

void setTelnetPort(const Command& command) {
    if (equals(command.argument, "sta")) return reportTelnetPort(command);
    const std::optional<int> port = parseDecimal(command.argument);
    if (!port || *port < 1 || *port > 65535) return reject(command);
    ChangeLock lock;
    if (!lock) return reject(command);
    const bool unchanged = readInteger(command.leaf).value_or(0) == *port;
    const Document document = fillInteger(command.leaf, *port);
    if (!updateSettings(document)) return logWriteFailure();
    // Between the write and its announcement, so that whoever reads the reply can connect to the new port.
    restartListener(*port);
    if (unchanged && command.broadcast) publishChange(document);
    lock.release();
    if (!command.broadcast) printSetting(command.rowName, *port);
}

void printTelnetPort(const char* rowName, const ChangedValue& value) {
    if (value.text != nullptr) return;
    restartListener(value.number);
    printSetting(rowName, value.number);
}
