#include "text/text.h"

#include <climits>

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

int hexDigit(char c) {
    if (isDigit(c)) return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

}  // namespace

const char* skipSpaces(const char* text) { return text + std::strspn(text, " "); }

bool isDigits(const char* text) {
    const std::size_t digits = std::strspn(text, "0123456789");
    return digits > 0 && text[digits] == '\0';
}

std::optional<int> parseDecimal(const char* text) {
    if (!isDigits(text)) return std::nullopt;
    int value = 0;
    for (; *text != '\0'; ++text) {
        const int digit = *text - '0';
        if (value > (INT_MAX - digit) / 10) return std::nullopt;
        value = value * 10 + digit;
    }
    return value;
}

std::optional<int> parseSignedDecimal(const char* text) {
    if (*text != '-') return parseDecimal(text);
    const std::optional<int> value = parseDecimal(text + 1);
    if (!value) return std::nullopt;
    return -*value;
}

unsigned parseHex(const char* text) { return parseHex(text, std::strlen(text)); }

unsigned parseHex(const char* text, std::size_t width) {
    unsigned value = 0;
    for (std::size_t i = 0; i < width; ++i) {
        const int digit = hexDigit(text[i]);
        if (digit < 0) return 0;
        value = value << 4 | static_cast<unsigned>(digit);
    }
    return value;
}
