#include "video/picture.h"

#include "command/log.h"
#include "settings/change_lock.h"
#include "settings/write_path.h"
#include "text/text.h"

#include <cstdio>

namespace {

/// Prints indexes and names in one write, so that no other line comes between them.
void printList(std::span<const Word> words, const char* title, const char* format) {
    FixedText<1024> list;
    list.append(title);
    int index = 0;
    for (const Word& word : words) list.appendFormat(format, index++, word.stored);
    std::fputs(list.c_str(), stdout);
}

}  // namespace

bool readScalerModeStatus() {
    const std::optional<int> mode = readBoolean(scalerModeLeaf);
    if (mode && isLogged(LOG_LEVEL_TRACE)) __printLog(LOG_LEVEL_TRACE, "[%s] scalerMode=%d\r\n", __func__, *mode);
    return mode == 1;
}

void resetPicture(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    if (!isOpen(command.family.gate)) return printLine("Command FAILED");  // oddity 11
    ChangeLock lock;
    if (!lock) return reject(command);
    const int counter = readInteger(command.leaf).value_or(0);
    const Document document = fillInteger(command.leaf, counter == 0 ? 1 : 0);
    const bool isShown = writeSetting(command, document, false);
    lock.release();
    if (isShown) printLine(command.rowName);
}

void copyOutputEdid(const Command& command) {
    // Both lines end in a bare line feed (oddity 12).
    if (!equals(command.argument, "mem1")) {
        std::printf("Command FAILED: (%s)\n", command.line);
    } else if (writeInteger(command, 1)) {
        std::printf("%s\n", command.line);
    }
}

void listPreferredTimings(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    printList(preferredTimings, "", "%02d    %s\r\n");
}

void setOutputResolution(const Command& command) {
    if (!equals(command.argument, "list")) return setWord(command, shownByNumber);
    if (!isOpen(command.family.gate)) return reject(command);
    printList(command.family.words, "index \t format\r\n", "\t%02d\t%s\r\n");
}

void printName(const Change& change) { printLine(change.rowName); }

void printEdidMemory(const Change& change) {
    const int memory = change.value.number;
    if (memory >= 1 && memory <= 8) std::printf("%s mem%d\r\n", change.rowName, memory);
}
