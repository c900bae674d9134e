#include "settings/integer_setting.h"

#include "settings/change_lock.h"
#include "settings/write_path.h"
#include "text/text.h"

#include <algorithm>

namespace {

void reportInteger(const Command& command) {
    const std::optional<int> stored = readInteger(command.leaf);
    if (stored) printSetting(command.rowName, *stored);
}

void changeInteger(const Command& command, std::optional<int> value) {
    if (!value || !command.family.range.holds(*value)) return reject(command);
    if (writeInteger(command, *value)) printSetting(command.rowName, *value);
}

void stepInteger(const Command& command, int step) {
    ChangeLock lock;
    if (!lock) return reject(command);
    const Range& range = command.family.range;
    const long long wanted = 0LL + readInteger(command.leaf).value_or(0) + step;
    const auto value = static_cast<int>(std::clamp<long long>(wanted, range.first, range.last));
    const bool isShown = value != wanted || writeInteger(command, value);
    lock.release();
    if (isShown) printSetting(command.rowName, value);
}

}  // namespace

void setInteger(const Command& command) {
    if (isEmpty(command.argument)) return reject(command);
    if (equals(command.argument, "sta")) return reportInteger(command);
    if (!isOpen(command.family.gate)) return reject(command);
    changeInteger(command, parseDecimal(command.argument));
}

void setSteppedInteger(const Command& command) {
    if (equals(command.argument, "sta")) return reportInteger(command);
    if (equals(command.argument, "+")) return stepInteger(command, +1);
    if (equals(command.argument, "-")) return stepInteger(command, -1);
    changeInteger(command, parseSignedDecimal(command.argument));
}
