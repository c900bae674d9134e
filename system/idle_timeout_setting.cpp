#include "system/idle_timeout_setting.h"

#include "settings/write_path.h"
#include "text/text.h"

#include <strings.h>

namespace {

constexpr char never[] = "never";

void reportIdleTimeout(const Command& command) {
    const std::optional<int> seconds = readInteger(command.leaf);
    if (!seconds) return reject(command);
    printIdleTimeout(command.rowName, {.number = *seconds});
}

}  // namespace

void setIdleTimeout(const Command& command) {
    if (strcasecmp(command.argument, "sta") == 0) return reportIdleTimeout(command);
    const bool isNever = equals(command.argument, never);
    const std::optional<int> seconds = isNever ? 0 : parseDecimal(command.argument);
    if (!seconds || *seconds > 3600) return reject(command);
    if (!writeInteger(command, *seconds)) return;
    if (isNever) return printSetting(command.rowName, never);
    printSetting(command.rowName, *seconds);
}

void printIdleTimeout(const char* rowName, const ChangedValue& value) {
    if (value.text != nullptr) return;
    if (value.number == 0) return printSetting(rowName, never);
    printSetting(rowName, value.number);
}
