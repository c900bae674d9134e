/// The JSON documents that nearly all changes and questions are: the way to one value and nothing else.
#pragma once

#include "text/text.h"

#include <cstddef>
#include <optional>

/// The value of such a document, {"audio":{"volume":-20}}, that has neither blanks nor escapes. A JSON library finds
/// the same there, at thirty times the cost.
struct PlainLeaf {
    enum class Kind { truthValue, integer, text };

    Kind kind;
    const char* value;  ///< in the document, a text with its quotes
    std::size_t size;   ///< 0 where there is no such value
};

/// The size of a text in quotes, quotes included; 0 where there is none.
inline std::size_t plainTextSize(const char* quoted) {
    if (*quoted != '"') return 0;
    const char* end = quoted + 1;
    while (static_cast<unsigned char>(*end) >= 0x20 && *end != '"' && *end != '\\') ++end;
    return *end == '"' ? static_cast<std::size_t>(end + 1 - quoted) : 0;
}

/// The size of an integer that is written in the one usual way and fits an int; 0 where there is none.
inline std::size_t plainIntegerSize(const char* number) {
    constexpr std::ptrdiff_t mostDigits = 9;
    const char* first = number + (*number == '-' ? 1 : 0);
    const char* end = first;
    while (*end >= '0' && *end <= '9') ++end;
    const bool isUsual = *first != '0' || (end == number + 1);
    return isUsual && end > first && end - first <= mostDigits ? static_cast<std::size_t>(end - number) : 0;
}

inline PlainLeaf plainValue(const char* value) {
    if (*value == '"') return {PlainLeaf::Kind::text, value, plainTextSize(value)};
    if (startsWith(value, "true")) return {PlainLeaf::Kind::truthValue, value, 4};
    if (startsWith(value, "false")) return {PlainLeaf::Kind::truthValue, value, 5};
    return {PlainLeaf::Kind::integer, value, plainIntegerSize(value)};
}

/// Nothing for any other document, which may be good JSON all the same.
inline std::optional<PlainLeaf> findPlainLeaf(const char* document) {
    constexpr std::size_t deepest = 16;
    std::size_t depth = 0;
    const char* at = document;
    for (; *at == '{'; ++depth) {
        const std::size_t key = plainTextSize(++at);
        if (key == 0 || at[key] != ':') return std::nullopt;
        at += key + 1;
    }
    const PlainLeaf leaf = plainValue(at);
    if (leaf.size == 0 || depth == 0 || depth > deepest) return std::nullopt;
    for (at += leaf.size; depth > 0 && *at == '}'; ++at) --depth;
    return depth == 0 && *at == '\0' ? std::optional(leaf) : std::nullopt;
}
