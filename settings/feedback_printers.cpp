#include "settings/feedback_printers.h"

#include "text/fixed_text.h"
#include "text/text.h"

#include <cstdio>

namespace {

using Label = FixedText<256>;

/// The carried text with its percent signs settled: "%%" is one, and a conversion, having no argument, is nothing.
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

void printWord(const char* rowName, const ChangedValue& value, const char* word) {
    if (value.text != nullptr && equals(value.text, word)) printSetting(rowName, word);
}

bool isTruthValue(const ChangedValue& value) {
    return value.text == nullptr && (value.number == 0 || value.number == 1);
}

}  // namespace

void printNothing(const char* /*rowName*/, const ChangedValue& /*value*/) {}

void printNameAndText(const char* rowName, const ChangedValue& value) {
    if (value.text != nullptr) printSetting(rowName, value.text);
}

void printNameAndInteger(const char* rowName, const ChangedValue& value) {
    if (value.text == nullptr) printSetting(rowName, value.number);
}

void printOnOff(const char* rowName, const ChangedValue& value) {
    if (isTruthValue(value)) printSetting(rowName, onOff(value.number == 1));
}

void printInvertedOnOff(const char* rowName, const ChangedValue& value) {
    if (isTruthValue(value)) printSetting(rowName, onOff(value.number == 0));
}

void printHdcpMode(const char* rowName, const ChangedValue& value) {
    if (value.text == nullptr) return;
    if (equals(value.text, "compliant")) printSetting(rowName, "on");
    if (equals(value.text, "non-compliant")) printSetting(rowName, "off");
}

void printLock(const char* /*rowName*/, const ChangedValue& value) {
    if (isTruthValue(value)) printLine(value.number == 1 ? "Lock" : "Unlock");
}

void printEdidMemory(const char* rowName, const ChangedValue& value) {
    if (value.text == nullptr && value.number >= 1 && value.number <= 8) {
        std::printf("%s mem%d\r\n", rowName, value.number);
    }
}

void printName(const char* rowName, const ChangedValue& /*value*/) { printLine(rowName); }

void printLabel(const char* rowName, const ChangedValue& value) {
    if (value.text == nullptr) return;
    printBracketed(rowName, decodeLabel(settlePercentSigns(value.text).c_str()).c_str());
}

void printUsbHostRoute(const char* rowName, const ChangedValue& value) {
    printWord(rowName, value, "local");
    printWord(rowName, value, "remote");
}
