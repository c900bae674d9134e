#include "settings/label.h"

#include "settings/write_path.h"
#include "text/text.h"

#include <algorithm>

namespace {

using Label = FixedText<256>;

/// The text as printf() would print it without arguments: "%%" is one "%", and a conversion is left out.
Label settlePercentSigns(const char* carried) {
    Label text;
    for (; *carried != '\0'; ++carried) {
        if (*carried != '%') {
            text.append(*carried);
            continue;
        }
        carried += 1 + std::strspn(carried + 1, "-+ #0123456789.*hlLqjzt");
        if (*carried == '%') text.append('%');
        if (*carried == '\0') break;
    }
    return text;
}

/// The characters whose hexadecimal codes stand in `codes`, separated by blanks. A code of 0 ends the label.
Label decodeLabel(const char* codes) {
    Label label;
    for (codes = skipSpaces(codes); *codes != '\0'; codes = skipSpaces(codes)) {
        const std::size_t width = std::strcspn(codes, " ");
        const auto character = static_cast<char>(parseHex(codes, width));
        if (character == '\0') break;
        label.append(character);
        codes += width;
    }
    return label;
}

}  // namespace

void setLabel(const Command& command) {
    if (!isBracketed(command.argument)) return reject(command);
    const char* text = command.argument + 1;
    Label typed;
    typed.append(text, std::min(std::strcspn(text, "]"), static_cast<std::size_t>(command.family.range.last)));
    if (writeText(command, typed.c_str())) printBracketed(command.rowName, typed.c_str());
}

void printLabel(const Change& change) {
    printBracketed(change.rowName, decodeLabel(settlePercentSigns(change.value.text).c_str()).c_str());
}
