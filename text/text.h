/// Small helpers for the texts that pass through the console. Texts are NUL-terminated and compared byte for byte.
#pragma once

#include <cstring>
#include <optional>

inline bool isEmpty(const char* text) { return *text == '\0'; }

inline bool equals(const char* text, const char* other) { return std::strcmp(text, other) == 0; }

inline bool startsWith(const char* text, const char* prefix) {
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

/// True for a text that begins with "[" and ends with "]".
inline bool isBracketed(const char* text, std::size_t length) {
    return length >= 2 && text[0] == '[' && text[length - 1] == ']';
}
inline bool isBracketed(const char* text) { return isBracketed(text, std::strlen(text)); }

/// First character that is not a space (0x20); tabs count as text.
const char* skipSpaces(const char* text);

/// True for a text of decimal digits only, at least one.
bool isDigits(const char* text);

/// Value of a text of decimal digits only; nothing for any other text and for a number that an int cannot hold.
std::optional<int> parseDecimal(const char* text);

/// As parseDecimal(), with one leading "-" allowed.
std::optional<int> parseSignedDecimal(const char* text);

/// Value of a hexadecimal text without prefix, sign or spaces; 0 as soon as any other character stands in it.
/// Digits beyond the eighth push the first ones out.
unsigned parseHex(const char* text);

/// Value of the `width` characters at `text`, as parseHex().
unsigned parseHex(const char* text, std::size_t width);
