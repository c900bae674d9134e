#include "system/factory.h"

#include "platform/factory_data.h"
#include "platform/shell.h"
#include "platform/user_status.h"
#include "settings/leaf.h"
#include "text/quoting.h"
#include "text/text.h"
#include "text/words.h"

#include <cerrno>
#include <cstdio>

namespace {

using MacGroups = Words<6>;

/// Room for a typed MAC address with its NUL.
constexpr std::size_t macRoom = 64;

/// The key's text; null also for an empty one, which has nothing to show.
OwnedText readVisibleText(const char* key) {
    OwnedText text = readFactoryText(key);
    if (text && isEmpty(text.get())) text.reset();
    return text;
}

bool writeOrReport(const Command& command) {
    if (writeFactoryText(command.leaf, command.argument)) return true;
    std::perror("factory_write_data");
    return false;
}

/// The reply names the command as it was typed: the line's first word.
void printMacAddress(const char* line, const char* address) {
    const OwnedText dashed = replaceAll(address, ":", "-");
    const auto nameLength = static_cast<int>(std::strcspn(line, " "));
    if (dashed) std::printf("%.*s %s\r\n", nameLength, line, dashed.get());
}

bool updateMacStatus(const char* address) {
    const Document document = fillText(R"({"network":{"eth0":{"macAddr":"%s"}}})", address);
    return !document.isCut() && user_status_update(document.c_str()) == 0;
}

}  // namespace

OwnedText readFactoryText(const char* key) {
    char* text = nullptr;
    factory_read_data(key, &text);
    return OwnedText(text);
}

bool writeFactoryText(const char* key, const char* value) {
    FixedText<256> line;
    line.appendFormat("/mnt/mtd/bin/factory_tool -w %s ", key);
    appendShellArgument(line, value);
    if (line.isCut()) {
        errno = EMSGSIZE;
        return false;
    }
    if (lsystem(line.c_str()) == 0) return true;
    errno = EIO;
    return false;
}

void writeMacAddress(const Command& command) {
    if (std::strlen(command.argument) >= macRoom || MacGroups(command.argument, "-").count() != 6) {
        return reject(command);
    }
    const OwnedText address = replaceAll(command.argument, "-", ":");
    if (!address || !writeFactoryText(command.leaf, address.get())) return;
    const OwnedText written = readVisibleText(command.leaf);
    if (!written) return;
    printMacAddress(command.line, written.get());
    if (!updateMacStatus(written.get())) printLine("user_status_update");
}

void reportMacAddress(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    const OwnedText address = readVisibleText(command.leaf);
    if (!address) return;
    const MacGroups groups(address.get(), ":");
    const char* separator = "";
    for (std::size_t i = 0; i < 6 && groups[i] != nullptr; ++i) {
        std::printf("%s%s", separator, groups[i]);
        separator = "-";
    }
    std::printf("\r\n");
}

void writeSerialNumber(const Command& command) {
    if (isEmpty(command.argument)) return reject(command);
    if (!writeOrReport(command)) return;
    const OwnedText written = readVisibleText(command.leaf);
    if (written) printSetting(command.rowName, written.get());
}

void writeProductId(const Command& command) {
    if (isEmpty(command.argument)) return reject(command);
    if (writeOrReport(command)) printLine(command.argument);
}

void reportFactoryText(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    const OwnedText text = readVisibleText(command.leaf);
    if (text) printLine(text.get());
}
