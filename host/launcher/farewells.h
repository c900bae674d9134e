/// Connections that have been told their last and wait for the peer to close.
///
/// Closing a socket while it holds unread input resets the connection, and the peer may lose what it was sent last.
#pragma once

#include "host/loop/event_loop.h"
#include "host/loop/unique_fd.h"

#include <list>
#include <string_view>

namespace host {

class Farewells {
  public:
    explicit Farewells(EventLoop& loop) : loop_(loop) {}

    /// Sends `text` if the peer takes it at once, and closes when the peer does, or shortly after.
    void say(UniqueFd peer, std::string_view text = {});

  private:
    struct Parting {
        Parting(EventLoop& loop, UniqueFd socket, Farewells& all);

        UniqueFd peer;
        ReadWatch watch;
        Timer deadline;
    };

    void forget(const Parting& parting);

    EventLoop& loop_;
    std::list<Parting> partings_;
};

}  // namespace host
