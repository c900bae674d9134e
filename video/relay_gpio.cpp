#include "video/relay_gpio.h"

#include "command/command.h"
#include "text/fixed_text.h"
#include "text/text.h"

#include <cstdlib>
#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

namespace {

constexpr char relayLine[] = "206";

using Path = FixedText<PATH_MAX>;

Path pathOf(const char* folder, const char* file) {
    Path path;
    path.appendFormat("%s/gpio%s/%s", folder, relayLine, file);
    return path;
}

int openOrExit(const char* path, int mode, const char* complaint) {
    const int file = open(path, mode | O_CLOEXEC);
    if (file >= 0) return file;
    printLine(complaint);
    std::exit(EXIT_FAILURE);
}

/// The result of the write is ignored: the kernel refuses to export a line that is exported already.
void writeAndClose(int file, const char* text) {
    [[maybe_unused]] const ssize_t written = write(file, text, std::strlen(text));
    close(file);
}

}  // namespace

void switchRelay(const char* state, const char* folder) {
    if (state == nullptr || isEmpty(state)) return;
    Path exportFile;
    exportFile.appendFormat("%s/export", folder);
    writeAndClose(openOrExit(exportFile.c_str(), O_WRONLY, "Cannot open export file."), relayLine);
    writeAndClose(openOrExit(pathOf(folder, "direction").c_str(), O_RDWR, "Cannot open direction file."), "out");
    const int value = openOrExit(pathOf(folder, "value").c_str(), O_WRONLY, "Cannot write value.");
    if (equals(state, "on")) writeAndClose(value, "1");
    if (equals(state, "off")) writeAndClose(value, "0");
    // Any other word leaves the file open until the process ends, which is soon.
}
