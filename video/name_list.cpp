#include "video/name_list.h"

#include "text/text.h"

namespace {

/// An index typed as it would be printed: "7", never "07". This also bounds its length.
std::optional<int> parseIndex(const char* text, const NameList& list) {
    if (text[0] == '0' && text[1] != '\0') return std::nullopt;
    const std::optional<int> index = parseDecimal(text);
    if (!index || static_cast<std::size_t>(*index) >= list.names.size()) return std::nullopt;
    return index;
}

void reportIndex(const Command& command, const NameList& list) {
    const OwnedText stored = readText(command.leaf);
    if (!stored) return;
    const std::optional<int> index = indexOf(stored.get(), list);
    if (!index) return reject(command);
    printSetting(command.rowName, *index);
}

}  // namespace

std::optional<int> indexOf(const char* name, const NameList& list) {
    int index = 0;
    for (const char* listed : list.names) {
        if (equals(name, listed)) return index;
        ++index;
    }
    return std::nullopt;
}

void setName(const Command& command, const NameList& list) {
    if (isEmpty(command.argument)) return reject(command);
    if (equals(command.argument, "sta")) return reportIndex(command, list);
    if (list.gate != nullptr && !list.gate()) return reject(command);
    if (list.printList != nullptr && equals(command.argument, "list")) return list.printList();
    const std::optional<int> index = parseIndex(command.argument, list);
    if (!index) return reject(command);
    if (writeText(command, list.names[static_cast<std::size_t>(*index)])) printSetting(command.rowName, *index);
}

void printNameIndex(const char* rowName, const ChangedValue& value, const NameList& list) {
    if (value.text == nullptr) return;
    const std::optional<int> index = indexOf(value.text, list);
    if (index) printSetting(rowName, *index);
}
