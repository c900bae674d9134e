/// The telnet protocol of one connection, an IAC state machine without the connection: bytes in, bytes out.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace host {

class TelnetStream {
  public:
    /// A `negotiating` stream offers to echo and to suppress go-ahead and answers what the peer asks for; a `raw` one
    /// sends the console's bytes and nothing else. Both take the peer's telnet commands out of the input.
    enum class Kind { negotiating, raw };

    explicit TelnetStream(Kind kind);

    /// What `fromPeer` has typed. Of a CR NUL the NUL is dropped; no byte 255 gets through.
    std::string decode(std::string_view fromPeer);

    /// The console's bytes as the peer has to get them, after any replies not taken yet.
    std::string encode(std::string_view fromConsole);

    /// The protocol's own bytes for the peer, offers at the start and answers later. Each is returned once.
    std::string takeReplies() { return std::exchange(replies_, {}); }

  private:
    enum class State { text, command, option, subnegotiation, subnegotiationCommand };

    void take(char byte, std::string& typed);
    void takeText(char byte, std::string& typed);
    void takeCommand(char command);
    void takeOption(char option);
    bool* switchOf(bool isOurs, char option);
    void reply(std::initializer_list<char> bytes);

    const Kind kind_;
    State state_ = State::text;
    char command_ = 0;  ///< WILL, WONT, DO or DONT, while its option is yet to come
    bool afterReturn_ = false;
    // Options that are on, or offered.
    bool weEcho_ = true;
    bool weSuppressGoAhead_ = true;
    bool peerSuppressesGoAhead_ = false;
    std::string replies_;
};

}  // namespace host
