#include "video/input_status.h"

#include "settings/feedback_printers.h"
#include "settings/leaf.h"
#include "text/text.h"
#include "video/video_input.h"

#include <cstdio>

namespace {

std::optional<int> readConnected(const VideoInput& input) {
    return readStatusBoolean(leafOf(input, R"({"connected":%s})").c_str());
}

bool isConnected(const VideoInput& input) { return readConnected(input) == 1; }

}  // namespace

void printBothInputs() {
    const bool hdbt = isConnected(hdbtInput);
    const bool hdmi = isConnected(hdmiInput);
    std::printf("InputStatus %d%d\r\n", hdbt, hdmi);
}

void reportBothInputs(const Command& /*command*/) { printBothInputs(); }

void reportInput(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    const std::optional<int> connected = readConnected(inputOfRow(command.rowName));
    if (connected) printSetting(command.rowName, *connected == 1);
}

void printInputStatus(const char* rowName, const ChangedValue& value) {
    if (readBoolean(R"({"system":{"inputBroadcast":%s}})") != 1) return;
    if (equals(rowName, "InputStatus")) return printBothInputs();
    printNameAndInteger(rowName, value);
}
