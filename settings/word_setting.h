/// Settings that store one word out of a short list.
#pragma once

#include "command/family.h"

/// How "sta" answers: with the text as it is stored, with the typed form of the stored word (the failure line for a
/// text that belongs to none), or not at all, so that "sta" is no word of the row.
enum class WordStatus { asStored, asTyped, none };

/// What differs from the usual in a list of words.
struct WordRules {
    WordStatus status = WordStatus::asStored;
    bool isConfirmedInBrackets = false;
    bool perrorsWriteFailure = false;  ///< instead of logging it
};

void setWord(const Command& command, const WordRules& rules);

template <WordRules rules>
void setWord(const Command& command) {
    setWord(command, rules);
}

/// Shows a stored word in its typed form, and nothing for a text that belongs to none.
void printWord(const Change& change);

/// A word that is stored as it is typed is shown as it is stored, listed or not; any other as printWord() does.
template <const auto& list, WordRules rules = WordRules{}, Gate gate = nullptr>
inline constexpr Family word{.action = setWord<rules>,
                             .printer = rules.status == WordStatus::asStored ? printText : printWord,
                             .kind = LeafKind::text,
                             .words = list,
                             .gate = gate};
