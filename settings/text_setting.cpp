#include "settings/text_setting.h"

#include "settings/write_path.h"
#include "text/text.h"

#include <algorithm>
#include <arpa/inet.h>

namespace {

constexpr std::size_t longestLabel = 30;

/// The longest text that any of these settings keeps.
using TypedText = FixedText<64>;

TypedText firstBytes(const char* text, std::size_t length) {
    TypedText bytes;
    bytes.append(text, std::min(length, std::strlen(text)));
    return bytes;
}

bool isBracketed(const char* text) { return *text == '[' && text[std::strlen(text) - 1] == ']'; }

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

void setLabel(const Command& command) {
    if (!isBracketed(command.argument)) return reject(command);
    const char* text = command.argument + 1;
    const TypedText label = firstBytes(text, std::min(std::strcspn(text, "]"), longestLabel));
    if (writeText(command, label.c_str())) printBracketed(command.rowName, label.c_str());
}

void setCutText(const Command& command, std::size_t limit) {
    if (isEmpty(command.argument)) return reject(command);
    const TypedText text = firstBytes(command.argument, limit);
    if (writeText(command, text.c_str())) printSetting(command.rowName, text.c_str());
}

void setShortText(const Command& command, std::size_t limit) {
    if (std::strlen(command.argument) > limit) return reject(command);
    if (writeText(command, command.argument)) printBracketed(command.rowName, command.argument);
}
