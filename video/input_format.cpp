#include "video/input_format.h"

#include "settings/leaf.h"
#include "text/text.h"
#include "video/video_input.h"

#include <cstdio>

namespace {

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

}  // namespace

void reportInputFormat(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    printFormat(command.rowName, readStatusBoolean(command.leaf).value_or(0) != 0);
}

void printInputFormat(const char* rowName, const ChangedValue& value) { printFormat(rowName, value.number != 0); }
