#include "console/line_reader.h"

#include "console/dispatcher.h"
#include "text/text.h"

#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int pollingTime = 30;  // milliseconds: the silence that ends a zone text

/// False on silence, and on an interruption, which counts as silence.
bool waitForInput() {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    return poll(&input, 1, pollingTime) > 0;
}

/// Takes one byte. False when there was none: the connection is gone, but SIGHUP has not arrived yet.
bool readByte(LineReader& reader) {
    char byte;
    if (read(STDIN_FILENO, &byte, 1) == 1) {
        reader.take(byte);
        return true;
    }
    usleep(pollingTime * 1000);  // the descriptor stays readable; without a pause this would spin
    return false;
}

}  // namespace

void LineReader::take(char byte) {
    if (line_.size() == 0) {
        session_.turns.beginLine();
    } else {
        session_.turns.noteByte();
    }
    std::fputc(byte, stderr);
    if (byte == '\r' || byte == '\n') {
        endLine(byte);
    } else {
        line_.append(byte);
    }
}

void LineReader::onQuiet() {
    if (zone_.isCollecting()) zone_.finish();
}

void LineReader::endLine(char terminator) {
    std::puts("\r");
    session_.turns.endLine();
    session_.idle.restart();
    if (line_.size() == 0) return;
    processLine(terminator);
    line_.clear();
}

void LineReader::processLine(char terminator) {
    const char* line = line_.c_str();
    if (zone_.isCollecting() || startsWith(line, zoneWord)) {
        zone_.collect(line, line_.size(), terminator);
    } else if (std::strstr(line, zoneWord) != nullptr && std::strstr(line, "help") == nullptr) {
        zone_.collectMisplaced(line, line_.size(), terminator);
    } else {
        dispatchCommand(line);
    }
}

void runLineReader(SessionContext& session) {
    LineReader reader(session);
    // One byte a round: a hang-up is seen before the next byte, and what is not taken yet still waits in the terminal.
    while (sessionRunning) {
        if (waitForInput() && readByte(reader)) continue;
        reader.onQuiet();
    }
}
