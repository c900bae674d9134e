#include "text/quoting.h"

void appendJsonEscaped(TextBuffer& out, const char* text) {
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

void appendShellArgument(TextBuffer& out, const char* text) {
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
