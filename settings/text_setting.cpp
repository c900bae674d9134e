#include "settings/text_setting.h"

#include "settings/write_path.h"
#include "text/text.h"

#include <algorithm>
#include <arpa/inet.h>

namespace {

/// The longest text that any of these settings keeps.
using TypedText = FixedText<64>;

}  // namespace

void reportText(const Command& command) {
    const OwnedText stored = readText(command.leaf);
    if (stored) printSetting(command.rowName, stored.get());
}

void setAddress(const Command& command) {
    if (equals(command.argument, "sta")) return reportText(command);
    in_addr address;
    if (inet_aton(command.argument, &address) == 0) return reject(command);
    if (writeText(command, command.argument)) printSetting(command.rowName, command.argument);
}

void setCutText(const Command& command) {
    if (isEmpty(command.argument)) return reject(command);
    TypedText text;
    const auto longest = static_cast<std::size_t>(command.family.range.last);
    text.append(command.argument, std::min(std::strlen(command.argument), longest));
    if (writeText(command, text.c_str())) printSetting(command.rowName, text.c_str());
}

void setShortText(const Command& command) {
    if (std::strlen(command.argument) > static_cast<std::size_t>(command.family.range.last)) return reject(command);
    if (writeText(command, command.argument)) printBracketed(command.rowName, command.argument);
}
