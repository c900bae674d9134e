/// Connections that are closed on our side and wait for the peer to close, too.
///
/// Closing a socket while it holds unread input resets the connection, and the peer may lose what it was sent last.
#pragma once

#include "host/base/unique_fd.h"
#include "host/loop/event_loop.h"

#include <list>
#include <string_view>

namespace host {

class LingeringCloses {
  public:
    explicit LingeringCloses(EventLoop& loop) : loop_(loop) {}

    /// Sends `text` if the peer takes it at once, and closes when the peer does, or shortly after.
    void close(UniqueFd peer, std::string_view text = {});

  private:
    struct LingeringClose {
        LingeringClose(EventLoop& loop, UniqueFd socket, LingeringCloses& all);

        UniqueFd peer;
        ReadWatch watch;
        Timer deadline;
    };

    void forget(const LingeringClose& ended);

    EventLoop& loop_;
    std::list<LingeringClose> closes_;
};

}  // namespace host
