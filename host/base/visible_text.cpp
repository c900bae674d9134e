#include "host/base/visible_text.h"

#include <cctype>
#include <cstdio>

namespace host {
namespace {

constexpr std::string_view escapedBytes = "\a\b\t\n\v\f\r\\";
constexpr std::string_view escapeLetters = "abtnvfr\\";

std::string octal(unsigned char byte) {
    char text[5];
    std::snprintf(text, sizeof text, "\\%03o", byte);
    return text;
}

}  // namespace

std::string visibleText(std::string_view text) {
    std::string visible;
    for (const char byte : text) {
        const std::size_t escape = escapedBytes.find(byte);
        if (escape != std::string_view::npos) {
            visible.append({'\\', escapeLetters[escape]});
        } else if (std::iscntrl(static_cast<unsigned char>(byte)) != 0) {
            visible += octal(static_cast<unsigned char>(byte));
        } else {
            visible += byte;
        }
    }
    return visible;
}

}  // namespace host
