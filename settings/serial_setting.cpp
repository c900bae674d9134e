#include "settings/serial_setting.h"

#include "settings/write_path.h"
#include "text/text.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

using SerialValues = std::array<int, serialFieldCount>;

constexpr std::array<const char*, serialFieldCount> fieldNames = {"baudrate", "databit", "parity", "stopbit"};
constexpr std::array baudRates = {2400, 4800, 9600, 19200, 38400, 57600, 115200};
constexpr int unsupportedParity = 255;
constexpr std::array parityCodes = {0, 1, 2};
constexpr useconds_t settlingTime = 200'000;

int readField(const SerialPort& port, SerialField field) {
    Document leaf;
    leaf.appendFormat("{\"system\":{\"uart\":{\"%s\":{\"%s\":%%d}}}}", port.interface, fieldNames[field]);
    return readInteger(leaf.c_str()).value_or(0);
}

SerialValues readPort(const SerialPort& port) {
    SerialValues values{};
    for (const SerialField field : {baudrate, databit, parity, stopbit}) values[field] = readField(port, field);
    return values;
}

Document fillPort(const SerialPort& port, const SerialValues& values) {
    Document document;
    document.appendFormat("{\"system\":{\"uart\":{\"%s\":", port.interface);
    char separator = '{';
    for (const SerialField field : port.writeOrder) {
        document.appendFormat("%c\"%s\":%d", separator, fieldNames[field], values[field]);
        separator = ',';
    }
    document.append("}}}}");
    return document;
}

/// A converted number as the one byte that data bits and parity are kept in: 263 counts as 7 (oddity 25).
std::optional<int> parseByte(const char* text) {
    const std::optional<int> value = parseDecimal(text);
    if (!value) return std::nullopt;
    return *value % 256;
}

bool parseBaudRate(const char* text, int& value) {
    value = parseDecimal(text).value_or(0);
    return std::find(baudRates.begin(), baudRates.end(), value) != baudRates.end();
}

bool parseDataBits(const char* text, int& value) {
    value = parseByte(text).value_or(0);
    return value == 7 || value == 8;
}

bool parseParity(const char* text, int& value) {
    const auto code = static_cast<std::size_t>(parseByte(text).value_or(unsupportedParity));
    if (code >= parityCodes.size() || parityCodes[code] == unsupportedParity) return false;
    value = parityCodes[code];
    return true;
}

bool parseStopBits(const char* text, int& value) {
    value = *text - '0';
    return (value == 1 || value == 2) && text[1] == '\0';
}

/// Cuts the field off at the next `end` and moves `rest` behind it. A field that has no end comes out empty, which no
/// parser takes.
const char* takeField(char*& rest, char end) {
    char* stop = std::strchr(rest, end);
    if (stop == nullptr) return "";
    const char* field = rest;
    *stop = '\0';
    rest = stop + 1;
    return field;
}

std::optional<SerialValues> parsePort(const char* argument) {
    const OwnedText copy(*argument == '[' ? strdup(argument + 1) : nullptr);
    if (!copy) return std::nullopt;
    char* rest = copy.get();
    SerialValues values{};
    const bool parsed = parseBaudRate(takeField(rest, ','), values[baudrate]) &&
                        parseDataBits(takeField(rest, ','), values[databit]) &&
                        parseParity(takeField(rest, ','), values[parity]) &&
                        parseStopBits(takeField(rest, ']'), values[stopbit]) && isEmpty(rest);
    if (!parsed) return std::nullopt;
    return values;
}

}  // namespace

void printSerialPort(const char* rowName, const SerialPort& port) {
    const SerialValues values = readPort(port);
    std::printf("%s[%d,%d,%d,%d]\r\n", rowName, values[baudrate], values[databit], values[parity], values[stopbit]);
}

void setSerialPort(const Command& command, const SerialPort& port) {
    if (equals(command.argument, "sta")) return printSerialPort(command.rowName, port);
    const std::optional<SerialValues> values = parsePort(command.argument);
    if (!values) return reject(command);
    const bool unchanged = readPort(port) == values;
    const Document document = fillPort(port, *values);
    if (!command.broadcast) printLine(command.line);
    usleep(settlingTime);
    if (unchanged) return publishChange(document, port.publishFailureText);
    if (!updateSettings(document)) perrorWriteFailure();
}
