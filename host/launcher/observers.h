/// Those who look on: local programs that want to know who is connected and what is typed.
///
/// A socket below the device root. Whoever connects is told of each session there is, and then of what happens, one
/// line each, its words parted by tabs: "open ID PORT PEER SINCE" (in seconds since the epoch), "typed ID TEXT" with
/// the control bytes made visible, "close ID". While nobody looks on, nothing is collected.
#pragma once

#include "host/base/unique_fd.h"
#include "host/launcher/listener.h"
#include "host/launcher/peer.h"
#include "host/loop/channel.h"
#include "host/loop/event_loop.h"

#include <list>
#include <memory>
#include <string>
#include <string_view>

namespace host {

class Observation;

class Observers {
  public:
    /// What fails is told on standard error: the sessions need no observers.
    explicit Observers(EventLoop& loop);

  private:
    friend class Observation;

    struct Observer {
        UniqueFd socket;
        std::unique_ptr<Channel> channel;
    };

    void admit(UniqueFd socket);
    void tell(const std::string& line);
    void forget(int socket);
    bool isWatched() const { return !observers_.empty(); }

    EventLoop& loop_;
    std::unique_ptr<Listener> listener_;
    std::list<Observer> observers_;
    std::list<Observation*> observations_;
    int lastId_ = 0;
};

/// What is told of one session, from its beginning to its end.
class Observation {
  public:
    Observation(Observers& observers, const Peer& peer);
    Observation(const Observation&) = delete;
    Observation& operator=(const Observation&) = delete;
    ~Observation();

    void typed(std::string_view bytes);

    const std::string& opening() const { return opening_; }

  private:
    void tellLine();

    Observers& observers_;
    const std::string id_;
    const std::string opening_;
    std::string line_;  ///< what was typed since the last line end
};

/// Path of the socket.
std::string observersPath();

}  // namespace host
