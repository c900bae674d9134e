#include "video/source_switch.h"

#include "settings/write_path.h"
#include "text/text.h"
#include "video/input_status.h"

#include <cstdio>

void switchSource(const Command& command) {
    if (!equals(command.line, command.rowName)) return reject(command);
    // The "s" after the event's name is meant: only this text has it, not the event.
    const WriteRules rules{.publishFailureText = "publishEvent(videoUserConfigChangeds SYSTEM_CMD_REQ_DEFAULT!)"};
    if (writeInteger(command, command.rowName[1] - '0', rules)) printLine(command.rowName);
}

void reportOutput(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    const std::optional<int> source = readInteger(command.leaf);
    if (source) std::printf("x%dAVx1\r\n", *source);
}

void printSource(const char* /*rowName*/, const ChangedValue& value) {
    if (value.text != nullptr) return;
    FixedText<sizeof "x1AVx1"> word;
    word.appendFormat("x%dAVx1", value.number);
    printLine(word.c_str());
    printBothInputs();
}
