#include "host/launcher/telnet_stream.h"

namespace host {
namespace {

constexpr char subnegotiationEnd = '\xf0', areYouThere = '\xf6', subnegotiationBegin = '\xfa', will = '\xfb',
               wont = '\xfc', doIt = '\xfd', dont = '\xfe', iac = '\xff';
constexpr char echo = 1, suppressGoAhead = 3;

}  // namespace

TelnetStream::TelnetStream(Kind kind) : kind_(kind) { reply({iac, will, echo, iac, will, suppressGoAhead}); }

std::string TelnetStream::decode(std::string_view fromPeer) {
    std::string typed;
    typed.reserve(fromPeer.size());
    for (const char byte : fromPeer) take(byte, typed);
    return typed;
}

std::string TelnetStream::encode(std::string_view fromConsole) {
    std::string bytes = takeReplies();
    for (const char byte : fromConsole) bytes.append(byte == iac && kind_ == Kind::negotiating ? 2 : 1, byte);
    return bytes;
}

void TelnetStream::take(char byte, std::string& typed) {
    switch (state_) {
        case State::text:
            if (byte == iac)
                state_ = State::command;
            else
                takeText(byte, typed);
            break;
        case State::command:
            takeCommand(byte);
            break;
        case State::option:
            takeOption(byte);
            break;
        case State::subnegotiation:
            if (byte == iac) state_ = State::subnegotiationCommand;
            break;
        case State::subnegotiationCommand:
            state_ = byte == subnegotiationEnd ? State::text : State::subnegotiation;
            break;
    }
}

void TelnetStream::takeText(char byte, std::string& typed) {
    const bool isPaddingOfReturn = afterReturn_ && byte == '\0';
    afterReturn_ = byte == '\r';
    if (!isPaddingOfReturn) typed += byte;
}

/// A doubled IAC is a byte 255 that was typed, which no command of the console holds.
void TelnetStream::takeCommand(char command) {
    const bool hasOption = command == will || command == wont || command == doIt || command == dont;
    if (command == areYouThere) reply({'\r', '\n', '[', 'y', 'e', 's', ']', '\r', '\n'});
    command_ = command;
    state_ = hasOption ? State::option : command == subnegotiationBegin ? State::subnegotiation : State::text;
}

void TelnetStream::takeOption(char option) {
    state_ = State::text;
    const bool isOurs = command_ == doIt || command_ == dont, isWanted = command_ == doIt || command_ == will;
    bool* const isOn = switchOf(isOurs, option);
    // What changes nothing is not answered, or two sides could answer each other for ever.
    if (isWanted == (isOn != nullptr && *isOn)) return;
    if (isOn != nullptr) *isOn = isWanted;
    const bool isAgreed = isOn != nullptr && isWanted;
    reply({iac, isOurs ? (isAgreed ? will : wont) : (isAgreed ? doIt : dont), option});
}

/// None for an option that stays off.
bool* TelnetStream::switchOf(bool isOurs, char option) {
    if (option == suppressGoAhead) return isOurs ? &weSuppressGoAhead_ : &peerSuppressesGoAhead_;
    return isOurs && option == echo ? &weEcho_ : nullptr;
}

void TelnetStream::reply(std::initializer_list<char> bytes) {
    if (kind_ == Kind::negotiating) replies_ += bytes;
}

}  // namespace host
