#include "settings/word_setting.h"

#include "settings/write_path.h"
#include "text/text.h"

namespace {

/// The word that is stored as `stored`; null for a text that belongs to none.
const Word* findStored(const Family& family, const char* stored) {
    for (const Word& word : family.words) {
        if (equals(stored, word.storedForm())) return &word;
    }
    return nullptr;
}

void reportWord(const Command& command, WordStatus status) {
    const OwnedText stored = readText(command.leaf);
    if (!stored) return;
    if (status == WordStatus::asStored) return printSetting(command.rowName, stored.get());
    const Word* word = findStored(command.family, stored.get());
    if (word == nullptr) return reject(command);
    printSetting(command.rowName, word->typed);
}

void changeWord(const Command& command, const Word& word, const WordRules& rules) {
    if (!isOpen(command.family.gate)) return reject(command);
    const WriteRules writeRules{rules.perrorsWriteFailure ? perrorWriteFailure : logWriteFailure,
                                word.repliesOrNone().publishFailureText};
    if (!writeText(command, word.storedForm(), writeRules)) return;
    if (rules.isConfirmedInBrackets) return printBracketed(command.rowName, word.confirmedForm());
    printSetting(command.rowName, word.confirmedForm());
}

}  // namespace

void setWord(const Command& command, const WordRules& rules) {
    if (rules.status != WordStatus::none && equals(command.argument, "sta")) return reportWord(command, rules.status);
    for (const Word& word : command.family.words) {
        if (equals(command.argument, word.typed)) return changeWord(command, word, rules);
    }
    reject(command);
}

void printWord(const Change& change) {
    const Word* word = findStored(change.family, change.value.text);
    if (word != nullptr) printSetting(change.rowName, word->typed);
}
