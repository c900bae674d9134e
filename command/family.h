/// What commands of a kind share: how a typed line is carried out, what their leaf holds, what they accept, and how a
/// changed value is shown. A row of the command table names one family.
#pragma once

#include "command/command.h"

#include <span>

/// What a row's leaf holds; its template has the conversion that goes with it.
enum class LeafKind {
    none,        ///< the row has no leaf
    truthValue,  ///< {"key":%s}
    number,      ///< {"key":%d}
    text,        ///< {"key":"%s"}
    factoryKey,  ///< no template, but the key of a text in the factory data
};

/// Accepted numbers, or the lengths of an accepted text, both ends included.
struct Range {
    int first = 0;
    int last = -1;

    constexpr bool isEmpty() const { return first > last; }
    constexpr bool holds(int value) const { return value >= first && value <= last; }
};

/// Replies of the few words that differ from the others'.
struct WordReplies {
    const char* confirmed = nullptr;           ///< in the reply of the console that made the change; null: as typed
    const char* publishFailureText = nullptr;  ///< null: the branch's own
};

/// One accepted word.
struct Word {
    const char* typed;
    const char* stored = nullptr;  ///< null: as typed; of a truth value "true" or "false"
    const WordReplies* replies = nullptr;

    constexpr const char* storedForm() const { return stored != nullptr ? stored : typed; }
    constexpr WordReplies repliesOrNone() const { return replies != nullptr ? *replies : WordReplies{}; }
    constexpr const char* confirmedForm() const {
        const char* confirmed = repliesOrNone().confirmed;
        return confirmed != nullptr ? confirmed : typed;
    }
};

/// Whether a change is allowed at the moment.
using Gate = bool (*)();

inline bool isOpen(Gate gate) { return gate == nullptr || gate(); }

struct Family {
    Action action;
    Printer printer = nullptr;  ///< null: a changed leaf shows nothing
    LeafKind kind = LeafKind::none;
    Range range{};                  ///< empty where anything is accepted, or a word
    std::span<const Word> words{};  ///< empty where anything is accepted, or a number
    Gate gate = nullptr;
};

/// A command without a leaf.
template <Action action>
inline constexpr Family order{.action = action};
