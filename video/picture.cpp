#include "video/picture.h"

#include "settings/change_lock.h"
#include "text/text.h"

#include <cstdio>

namespace {

/// Prints indexes and names in one piece, into which nothing else comes.
void printList(std::span<const char* const> names, const char* title, const char* format) {
    FixedText<1024> list;
    list.append(title);
    int index = 0;
    for (const char* name : names) list.appendFormat(format, index++, name);
    std::fputs(list.c_str(), stdout);
}

}  // namespace

void resetPicture(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    if (!readScalerModeStatus()) return printLine("Command FAILED");  // without the line, unlike all others
    ChangeLock lock;
    if (!lock) return reject(command);
    const int counter = readInteger(command.leaf).value_or(0);
    const Document document = fillInteger(command.leaf, counter == 0 ? 1 : 0);
    const bool isShown = writeSetting(command, document, false);
    lock.release();
    if (isShown) printLine(command.rowName);
}

void copyOutputEdid(const Command& command) {
    // Both lines end in a bare line feed on purpose, unlike all others.
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

void printOutputResolutions() { printList(outputResolutions, "index \t format\r\n", "\t%02d\t%s\r\n"); }
