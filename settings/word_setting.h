/// Settings that store one word out of a short list.
#pragma once

#include "command/command.h"
#include "settings/write_path.h"

#include <span>

/// One accepted word. What is left null is as typed.
struct Word {
    const char* typed;
    const char* stored = nullptr;
    const char* confirmed = nullptr;
    const char* publishFailureText = nullptr;  ///< null: the branch's own
};

/// How "sta" answers: with the text as it is stored, with the typed form of the stored word (the failure line for a
/// text that belongs to none), or not at all, so that "sta" is no word of the row.
enum class WordStatus { asStored, asTyped, none };

struct WordRules {
    std::span<const Word> words;
    WordStatus status = WordStatus::asStored;
    void (*confirm)(const char* rowName, const char* word) = printSetting;
    Gate gate = nullptr;  ///< asked before a change
    void (*reportWriteFailure)() = logWriteFailure;
};

void setWord(const Command& command, const WordRules& rules);

template <const WordRules& rules>
void setWord(const Command& command) {
    setWord(command, rules);
}
