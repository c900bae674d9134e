/// Carries a text across a border unchanged, whatever it holds.
#pragma once

#include "text/fixed_text.h"

/// Appends `text` as the inside of a JSON string: quotes, backslashes and control bytes as escapes, all else as it is.
template <std::size_t Capacity>
void appendJsonEscaped(FixedText<Capacity>& out, const char* text) {
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (byte < 0x20) {
            out.appendFormat("\\u%04x", byte);
        } else {
            if (byte == '"' || byte == '\\') out.append('\\');
            out.append(*text);
        }
    }
}

/// Appends `text` as one argument of a shell line: plain words as they are, anything else in single quotes.
template <std::size_t Capacity>
void appendShellArgument(FixedText<Capacity>& out, const char* text) {
    static constexpr char plain[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+=:,./@%";
    if (*text != '\0' && text[std::strspn(text, plain)] == '\0') {
        out.append(text);
        return;
    }
    out.append('\'');
    for (; *text != '\0'; ++text) {
        if (*text == '\'') {
            out.append("'\\''");
        } else {
            out.append(*text);
        }
    }
    out.append('\'');
}
