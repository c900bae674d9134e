/// One connection's telnet protocol, without the connection: bytes in, bytes out.
#pragma once

#include "host/launcher/subnegotiation_filter.h"

#include <memory>
#include <string>
#include <string_view>

struct telnet_t;
union telnet_event_t;

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

    /// What the protocol has to tell the peer by itself: the offers at the start, answers later. Empties it.
    std::string takeReplies();

  private:
    void onEvent(const telnet_event_t& event);
    void appendTyped(std::string_view bytes);

    Kind kind_;
    SubnegotiationFilter subnegotiations_;
    std::unique_ptr<telnet_t, void (*)(telnet_t*)> telnet_;
    std::string typed_;
    std::string replies_;
    bool afterReturn_ = false;
};

}  // namespace host
