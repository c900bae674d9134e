#include "system/maintenance.h"

#include "command/service_call.h"
#include "platform/event_bus.h"
#include "platform/shell.h"
#include "settings/leaf.h"
#include "text/text.h"

#include <cstdio>
#include <unistd.h>

namespace {

/// Time for the other daemons to come to an end.
constexpr useconds_t rebootDelay = 3'000'000;

void askUpgradeService(const char* request) {
    if (eventbus_publish("UpgradeSlaveVersionQuery", request) != 0) {
        std::perror("publishEvent(UpgradeSlaveVersionQuery SYSTEM_CMD_REQ_DEFAULT!)");
    }
}

bool isUpdateRunning() {
    return readStatusBoolean(R"({"system":{"update":{"progressEvent":{"isOn":%s}}}})").value_or(0) != 0;
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
    // Any Reboot line restarts the device, a refused one as well.
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
