/// Who is connected and what is typed, for local programs that want to show it.
///
/// A socket below the device root. Whoever connects gets a line for each session there is, and then for what happens,
/// its words separated by tabs: "open ID PORT PEER SINCE" (in seconds since the epoch), "typed ID TEXT" with the
/// control bytes made visible, "close ID". While nobody is connected, nothing is collected.
#pragma once

#include "host/base/unique_fd.h"
#include "host/launcher/listener.h"
#include "host/launcher/peer.h"
#include "host/loop/channel.h"
#include "host/loop/event_loop.h"

#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace host {

class Observers {
  public:
    /// A failure is reported on standard error: the sessions need no observers.
    explicit Observers(EventLoop& loop);

    /// A session has begun; the id that it has from now on.
    int opened(const Peer& peer);
    void typed(int session, std::string_view bytes);
    void closed(int session);

  private:
    struct Observer {
        UniqueFd socket;
        std::unique_ptr<Channel> channel;
    };
    struct Session {
        std::string opening;  ///< its line "open ..."
        std::string line;     ///< what was typed since the last line end
    };

    void admit(UniqueFd socket);
    void send(const std::string& line);
    void forget(int socket);

    EventLoop& loop_;
    std::unique_ptr<Listener> listener_;
    std::list<Observer> observers_;
    std::map<int, Session> sessions_;
    int lastId_ = 0;
};

/// Path of the socket.
std::string observersPath();

}  // namespace host
