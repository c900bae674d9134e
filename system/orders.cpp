#include "system/orders.h"

#include "command/events.h"
#include "command/service_call.h"
#include "platform/event_bus.h"
#include "platform/shell.h"
#include "platform/user_status.h"
#include "settings/change_lock.h"
#include "settings/write_path.h"
#include "text/text.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

/// Time for the other daemons to come to an end.
constexpr useconds_t rebootDelay = 3'000'000;

void askUpgradeService(const char* request) {
    if (eventbus_publish(upgradeEvent, request) != 0) {
        std::perror("publishEvent(UpgradeSlaveVersionQuery SYSTEM_CMD_REQ_DEFAULT!)");
    }
}

bool isUpdateRunning() {
    return readStatusBoolean(R"({"system":{"update":{"progressEvent":{"isOn":%s}}}})").value_or(0) != 0;
}

void setDebug(const Command& command, bool on) {
    printLine(on ? "debug on" : "debug off");
    if (user_status_update(fillBoolean(command.leaf, on).c_str()) != 0) logWriteFailure();
    lsystem(on ? "/mnt/mtd/bin/apploggertool -a console debug" : "/mnt/mtd/bin/apploggertool -d");
}

void setChipDebug(const Command& command, bool on) {
    if (!updateSettings(fillBoolean(command.leaf, on))) logWriteFailure();
    // Relative to the working folder, unlike above (oddity 31).
    lsystem(on ? "mnt/mtd/bin/apploggertool -a console debug" : "mnt/mtd/bin/apploggertool -d");
}

void sendToDisplay(const char* text) {
    callService("kxcmdd", "receiveFromUartString", text, "lpc_proxy_call receiveFromUartString");
    std::fprintf(stderr, "\033[1;33m%s\033[0m\r\n", text);
}

}  // namespace

void resetToDefaults(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    askUpgradeService("Sys Default\r");
}

void rebootDevice(const Command& command) {
    if (isEmpty(command.argument)) {
        printLine(command.rowName);
        askUpgradeService("Sys Reboot\r");
    } else {
        reject(command);
    }
    // Any Reboot line restarts the device, a refused one as well (oddity 14).
    usleep(rebootDelay);
    lsystem("reboot");
}

void updateFirmware(const Command& command) {
    if (!isUpdateRunning()) {
        if (!isEmpty(command.argument)) return reject(command);
        callService("systemd", "sshUpdate", "On");
    }
    printLine(command.line);
}

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

void routeUsb(const Command& command) {
    static constexpr const char* words[] = {"Off", "OUTA", "VALENS_UART_UPDATE", "On"};
    // Any text is a number, as to atoi() (oddity 15), but a number beyond all bounds stays out of range.
    const long route = std::strtol(command.argument, nullptr, 10);
    if (route < 0 || route >= std::ssize(words)) return reject(command);
    callService("intermcud", "trigerUsb", words[route]);
    printLine(command.line);
}

void setLock(const Command& command) {
    if (equals(command.line, "Lock sta")) return printLine(command.rowName);  // oddity 13
    if (!equals(command.line, command.rowName)) return reject(command);
    const bool isLocked = equals(command.rowName, "Lock");
    if (writeBoolean(command, isLocked, {.reportWriteFailure = perrorWriteFailure})) printLine(command.rowName);
}

void runDiagnostic(const Command& command) {
    if (equals(command.argument, "on")) sendToDisplay("KX_Display On");
    if (equals(command.argument, "off")) sendToDisplay("KX_Display Off");
}

void printLock(const Change& change) {
    const int isLocked = change.value.number;
    if (isLocked == 0 || isLocked == 1) printLine(isLocked == 1 ? "Lock" : "Unlock");
}
