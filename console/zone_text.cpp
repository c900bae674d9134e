#include "console/zone_text.h"

#include "command/command.h"
#include "platform/lpc.h"
#include "text/owned_text.h"
#include "text/text.h"

#include <cstdio>
#include <unistd.h>

namespace {

constexpr std::size_t wordLength = sizeof zoneWord - 1;
constexpr std::size_t longestBracketText = 80;

using HexText = FixedText<256>;
using Reply = FixedText<300>;

/// Written directly to the descriptor, in one write.
void writeReply(const Reply& reply) {
    std::fflush(stdout);
    if (write(STDOUT_FILENO, reply.c_str(), reply.size()) < 0) return;  // the client is gone; SIGHUP ends the session
}

/// The brackets follow the word at once: with a space in between the text is refused (oddity 6).
bool isZoneCommand(const char* text, std::size_t length) {
    return length >= wordLength && length <= wordLength + longestBracketText &&
           isBracketed(text + wordLength, length - wordLength);
}

/// " 41 42" for the bytes between the brackets.
HexText encodeBytes(const char* text, std::size_t length) {
    HexText bytes;
    for (std::size_t i = wordLength + 1; i + 1 < length; ++i) {
        bytes.appendFormat(" %02X", static_cast<unsigned char>(text[i]));
    }
    return bytes;
}

/// A typed backslash and "r" stand for a carriage return.
bool sendToZone(const HexText& bytes) {
    const OwnedText text = replaceAll(bytes.c_str(), "5C 72", "0D");
    return text && lpc_proxy_call("displayControl", "HexRS232zone", text.get()) == 0;
}

}  // namespace

void ZoneText::collect(const char* line, std::size_t length, char terminator) {
    zoneCollecting_ = true;
    zoneBuffer_.append(line, length);
    zoneBuffer_.append(terminator);
}

void ZoneText::collectMisplaced(const char* line, std::size_t length, char terminator) {
    zoneFailed_ = true;
    collect(line, length, terminator);
}

std::size_t ZoneText::trimmedLength() const {
    std::size_t length = zoneBuffer_.size();
    while (length > 0 && (zoneBuffer_.c_str()[length - 1] == '\r' || zoneBuffer_.c_str()[length - 1] == '\n')) --length;
    return length;
}

void ZoneText::finish() {
    if (zoneFailed_) {
        reject(zoneBuffer_.c_str());
    } else {
        forward(trimmedLength());
    }
    *this = ZoneText();
}

void ZoneText::forward(std::size_t length) const {
    const char* text = zoneBuffer_.c_str();
    Reply reply;
    if (isZoneCommand(text, length)) {
        if (!sendToZone(encodeBytes(text, length))) return std::perror("lpc_proxy_call");
        reply.append(text, length);
        reply.append("\r\n");
    } else {
        reply.append("\rCommand FAILED: (");
        reply.append(text, length);
        reply.append(")\r\n");
    }
    writeReply(reply);
}
