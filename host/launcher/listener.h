/// A TCP port that takes connections.
#pragma once

#include "host/launcher/peer.h"
#include "host/loop/event_loop.h"
#include "host/loop/unique_fd.h"

#include <functional>
#include <memory>
#include <string>

namespace host {

class Listener {
  public:
    using OnPeer = std::function<void(Peer peer)>;

    /// Listens on a numeric address; none, with errno set, when that fails.
    static std::unique_ptr<Listener> open(EventLoop& loop, const std::string& address, int port, OnPeer onPeer);

    Listener(EventLoop& loop, UniqueFd socket, OnPeer onPeer);

    /// The port it has got, also when it was asked for any.
    int port() const;

  private:
    void acceptWaiting();
    bool acceptOne();
    void onAcceptFailure();
    void refuseOne();

    UniqueFd socket_;
    UniqueFd reserve_;  ///< given up to refuse a peer when no other descriptor is left
    OnPeer onPeer_;
    ReadWatch watch_;
    Timer resume_;
};

}  // namespace host
