#include "settings/switch_setting.h"

#include "settings/write_path.h"
#include "text/text.h"

namespace {

bool isTrue(const Word& word) { return equals(word.stored, "true"); }

void printTruthValue(const char* rowName, int value, const Family& family) {
    for (const Word& word : family.words) {
        if (value == isTrue(word)) printSetting(rowName, word.typed);
    }
}

void reportSwitch(const Command& command) {
    const std::optional<int> stored = readBoolean(command.leaf);
    if (stored) printTruthValue(command.rowName, *stored, command.family);
}

/// The word that was typed; null for anything else, which includes every word while the gate is closed.
const Word* typedWord(const Command& command) {
    for (const Word& word : command.family.words) {
        if (equals(command.argument, word.typed)) return isOpen(command.family.gate) ? &word : nullptr;
    }
    return nullptr;
}

}  // namespace

bool changeSwitch(const Command& command) {
    const Word* word = typedWord(command);
    if (equals(command.argument, "sta")) {
        reportSwitch(command);
    } else if (word == nullptr) {
        reject(command);
    } else if (writeBoolean(command, isTrue(*word))) {
        printSetting(command.rowName, word->typed);
        return true;
    }
    return false;
}

void setSwitch(const Command& command) { changeSwitch(command); }

void setUnconfirmedSwitch(const Command& command) {
    Command announced = command;
    announced.broadcast = true;
    setSwitch(announced);
}

void printSwitch(const Change& change) { printTruthValue(change.rowName, change.value.number, change.family); }
