#include "settings/word_setting.h"

#include "text/text.h"

namespace {

const char* storedForm(const Word& word) { return word.stored != nullptr ? word.stored : word.typed; }

const char* confirmedForm(const Word& word) { return word.confirmed != nullptr ? word.confirmed : word.typed; }

void reportAsTyped(const Command& command, const char* stored, const WordRules& rules) {
    for (const Word& word : rules.words) {
        if (equals(stored, storedForm(word))) return printSetting(command.rowName, word.typed);
    }
    reject(command);
}

void reportWord(const Command& command, const WordRules& rules) {
    const OwnedText stored = readText(command.leaf);
    if (!stored) return;
    if (rules.status == WordStatus::asTyped) return reportAsTyped(command, stored.get(), rules);
    printSetting(command.rowName, stored.get());
}

void changeWord(const Command& command, const Word& word, const WordRules& rules) {
    if (rules.gate != nullptr && !rules.gate()) return reject(command);
    const WriteRules writeRules{rules.reportWriteFailure, word.publishFailureText};
    if (writeText(command, storedForm(word), writeRules)) rules.confirm(command.rowName, confirmedForm(word));
}

}  // namespace

void setWord(const Command& command, const WordRules& rules) {
    if (rules.status != WordStatus::none && equals(command.argument, "sta")) return reportWord(command, rules);
    for (const Word& word : rules.words) {
        if (equals(command.argument, word.typed)) return changeWord(command, word, rules);
    }
    reject(command);
}
