/// A TCP port that takes connections.
#pragma once

#include "host/base/unique_fd.h"
#include "host/launcher/peer.h"
#include "host/loop/event_loop.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <sys/socket.h>

struct evconnlistener;

namespace host {

class Listener {
  public:
    using OnPeer = std::function<void(Peer peer)>;

    /// Listens on a numeric address; none, with errno set, when that fails.
    static std::unique_ptr<Listener> open(EventLoop& loop, const std::string& address, int port, OnPeer onPeer);

    /// The same on an address of any kind.
    static std::unique_ptr<Listener> openAt(EventLoop& loop, const sockaddr* address, socklen_t size, OnPeer onPeer);

    Listener(EventLoop& loop, const sockaddr* address, socklen_t size, OnPeer onPeer);

    /// The port it has got, also when it was asked for any.
    int port() const;

  private:
    static void onConnection(evconnlistener* events, int fd, sockaddr* address, int size, void* self);
    static void onFailure(evconnlistener* events, void* self);
    void pause(std::chrono::milliseconds span);
    void resume();
    void refuseOne();

    UniqueFd reserve_;  ///< given up to refuse a peer when no other descriptor is left
    OnPeer onPeer_;
    unsigned accepted_ = 0;
    Timer resume_;
    std::unique_ptr<evconnlistener, void (*)(evconnlistener*)> events_;
};

}  // namespace host
