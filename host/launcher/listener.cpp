#include "host/launcher/listener.h"

#include "host/launcher/peer.h"

#include <array>
#include <cerrno>
#include <event2/listener.h>
#include <event2/util.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <string_view>
#include <sys/socket.h>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr unsigned listenerOptions = LEV_OPT_CLOSE_ON_FREE | LEV_OPT_CLOSE_ON_EXEC | LEV_OPT_REUSEABLE;
constexpr int backlog = 512;
constexpr int acceptedAtOnce = 16;
constexpr auto pauseAfterFailure = 100ms;
constexpr std::string_view mappedPrefix = "::ffff:";

/// The numeric address; an IPv4 peer of an IPv6 socket has its IPv4 address.
std::string textOf(const sockaddr* address, int size) {
    std::array<char, NI_MAXHOST> name = {};
    getnameinfo(address, static_cast<socklen_t>(size), name.data(), name.size(), nullptr, 0, NI_NUMERICHOST);
    const std::string_view text = name.data();
    return std::string(text.starts_with(mappedPrefix) ? text.substr(mappedPrefix.size()) : text);
}

/// IPv6 addresses have it at the same place.
in_port_t& portOf(sockaddr_storage& address) { return reinterpret_cast<sockaddr_in&>(address).sin_port; }

UniqueFd openReserve() { return UniqueFd(::open("/dev/null", O_RDONLY | O_CLOEXEC)); }

}  // namespace

std::unique_ptr<Listener> Listener::open(EventLoop& loop, const std::string& address, int port, OnPeer onPeer) {
    sockaddr_storage own = {};
    int size = sizeof own;
    // What is no address stays without a family, and then there is no socket for it.
    evutil_parse_sockaddr_port(address.c_str(), reinterpret_cast<sockaddr*>(&own), &size);
    portOf(own) = htons(static_cast<in_port_t>(port));
    return openAt(loop, reinterpret_cast<const sockaddr*>(&own), static_cast<socklen_t>(size), std::move(onPeer));
}

std::unique_ptr<Listener> Listener::openAt(EventLoop& loop, const sockaddr* address, socklen_t size, OnPeer onPeer) {
    auto listener = std::make_unique<Listener>(loop, address, size, std::move(onPeer));
    return listener->events_ ? std::move(listener) : nullptr;
}

Listener::Listener(EventLoop& loop, const sockaddr* address, socklen_t size, OnPeer onPeer)
    : reserve_(openReserve()),
      onPeer_(std::move(onPeer)),
      resume_(loop, [this] { resume(); }),
      events_(evconnlistener_new_bind(loop.base(), onConnection, this, listenerOptions, backlog, address,
                                      static_cast<int>(size)),
              evconnlistener_free) {
    if (events_) evconnlistener_set_error_cb(events_.get(), onFailure);
}

int Listener::port() const {
    sockaddr_storage own = {};
    socklen_t size = sizeof own;
    getsockname(evconnlistener_get_fd(events_.get()), reinterpret_cast<sockaddr*>(&own), &size);
    return ntohs(portOf(own));
}

void Listener::onConnection(evconnlistener* /*events*/, int fd, sockaddr* address, int size, void* self) {
    auto* const listener = static_cast<Listener*>(self);
    // A few at a time, so that a flood of connections does not hold up the sessions.
    if (++listener->accepted_ % acceptedAtOnce == 0) listener->pause(0ms);
    listener->onPeer_({UniqueFd(fd), textOf(address, size), listener->port()});
}

void Listener::onFailure(evconnlistener* /*events*/, void* self) {
    auto* const listener = static_cast<Listener*>(self);
    if (errno == EMFILE && listener->reserve_) return listener->refuseOne();
    // The waiting connection keeps the socket readable: without a pause the loop would spin.
    listener->pause(pauseAfterFailure);
}

void Listener::pause(std::chrono::milliseconds span) {
    evconnlistener_disable(events_.get());
    resume_.start(span);
}

void Listener::resume() {
    if (!reserve_) reserve_ = openReserve();
    evconnlistener_enable(events_.get());
}

void Listener::refuseOne() {
    reserve_.reset();
    UniqueFd peer(accept4(evconnlistener_get_fd(events_.get()), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (peer) {
        sendIfTaken(peer.get(), "Too many connections.\r\n");
        discardInput(peer.get());
    }
    peer.reset();
    reserve_ = openReserve();
}

}  // namespace host
