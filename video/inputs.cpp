#include "video/inputs.h"

#include "settings/write_path.h"
#include "text/text.h"

#include <cstdio>

namespace {

/// One of the device's two physical inputs: the path of its leaves in the stores.
struct VideoInput {
    const char* group;
    const char* name;
};

constexpr VideoInput hdbtInput{"hdbtIn", "hdbtIn1"};
constexpr VideoInput hdmiInput{"hdmiIn", "hdmiIn1"};

/// The input that a row's name ends in: "InputFormat1" is the HDBaseT input, "InputFormat2" the HDMI input.
const VideoInput& inputOfRow(const char* rowName) {
    return rowName[std::strlen(rowName) - 1] == '2' ? hdmiInput : hdbtInput;
}

using InputLeaf = FixedText<128>;

/// The template of a leaf below the input, such as {"connected":%s}.
InputLeaf leafOf(const VideoInput& input, const char* below) {
    InputLeaf leaf;
    leaf.appendFormat("{\"video\":{\"vidIn\":{\"%s\":{\"%s\":%s}}}}", input.group, input.name, below);
    return leaf;
}

std::optional<int> readConnected(const VideoInput& input) {
    return readStatusBoolean(leafOf(input, R"({"connected":%s})").c_str());
}

bool isConnected(const VideoInput& input) { return readConnected(input) == 1; }

int readNumber(const VideoInput& input, const char* below) {
    return readStatusInteger(leafOf(input, below).c_str()).value_or(0);
}

void printFormat(const char* rowName, bool isStable) {
    if (!isStable) return printSetting(rowName, "--:--:--");
    const VideoInput& input = inputOfRow(rowName);
    const int width = readNumber(input, R"({"videoTiming":{"h":%d}})");
    const int height = readNumber(input, R"({"videoTiming":{"v":%d}})");
    const auto interlace = readStatusBoolean(leafOf(input, R"({"videoTiming":{"interlace":%s}})").c_str());
    const int refreshRate = readNumber(input, R"({"videoTiming":{"refreshRate":%d}})");
    const int colorDepth = readNumber(input, R"({"colorDepth":%d})");
    const OwnedText colorMode = readStatusText(leafOf(input, R"({"colorMode":"%s"})").c_str());
    std::printf("%s %dx%d%c%d:%dbit:%s\r\n", rowName, width, height, interlace == 1 ? 'i' : 'p', refreshRate,
                colorDepth, colorMode ? colorMode.get() : "");
}

void printBothInputs() {
    const bool hdbt = isConnected(hdbtInput);
    const bool hdmi = isConnected(hdmiInput);
    std::printf("InputStatus %d%d\r\n", hdbt, hdmi);
}

}  // namespace

void reportBothInputs(const Command& /*command*/) { printBothInputs(); }

void reportInput(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    const std::optional<int> connected = readConnected(inputOfRow(command.rowName));
    if (connected) printSetting(command.rowName, *connected == 1);
}

void printInputStatus(const Change& /*change*/) {
    if (readBoolean(inputBroadcastLeaf) == 1) printBothInputs();
}

void reportInputFormat(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    printFormat(command.rowName, readStatusBoolean(command.leaf).value_or(0) != 0);
}

void printInputFormat(const Change& change) { printFormat(change.rowName, change.value.number != 0); }

void switchSource(const Command& command) {
    if (!equals(command.line, command.rowName)) return reject(command);
    // The "s" after the event's name (oddity 29): only this text has it, not the event.
    const WriteRules rules{.publishFailureText = "publishEvent(videoUserConfigChangeds SYSTEM_CMD_REQ_DEFAULT!)"};
    if (writeInteger(command, command.rowName[1] - '0', rules)) printLine(command.rowName);
}

void reportOutput(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    const std::optional<int> source = readInteger(command.leaf);
    if (source) std::printf("x%dAVx1\r\n", *source);
}

void printSource(const Change& change) {
    FixedText<sizeof "x1AVx1"> word;
    word.appendFormat("x%dAVx1", change.value.number);
    printLine(word.c_str());
    printBothInputs();
}
