#include "host/launcher/listener.h"

#include "host/launcher/peer.h"

#include <array>
#include <cerrno>
#include <event2/listener.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <string_view>
#include <sys/socket.h>

namespace host {
namespace {

using namespace std::chrono_literals;

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

UniqueFd bindTo(const addrinfo& address) {
    UniqueFd socket(::socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const int on = 1;
    setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    // For the connections: the urgent byte of a telnet client is the second of a command and stays behind the first.
    setsockopt(socket.get(), SOL_SOCKET, SO_OOBINLINE, &on, sizeof on);
    if (bind(socket.get(), address.ai_addr, address.ai_addrlen) != 0) socket.reset();
    return socket;
}

UniqueFd openReserve() { return UniqueFd(::open("/dev/null", O_RDONLY | O_CLOEXEC)); }

}  // namespace

std::unique_ptr<Listener> Listener::open(EventLoop& loop, const std::string& address, int port, OnPeer onPeer) {
    addrinfo hints = {};
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV | AI_PASSIVE;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) {
        errno = EADDRNOTAVAIL;
        return nullptr;
    }
    UniqueFd socket = bindTo(*found);
    freeaddrinfo(found);
    return socket ? listenOn(loop, std::move(socket), std::move(onPeer)) : nullptr;
}

std::unique_ptr<Listener> Listener::listenOn(EventLoop& loop, UniqueFd socket, OnPeer onPeer) {
    auto listener = std::make_unique<Listener>(loop, std::move(socket), std::move(onPeer));
    return listener->events_ ? std::move(listener) : nullptr;
}

Listener::Listener(EventLoop& loop, UniqueFd socket, OnPeer onPeer)
    : socket_(std::move(socket)),
      reserve_(openReserve()),
      onPeer_(std::move(onPeer)),
      events_(evconnlistener_new(loop.base(), onConnection, this, LEV_OPT_CLOSE_ON_EXEC, backlog, socket_.get()),
              evconnlistener_free),
      resume_(loop, [this] { resume(); }) {
    if (events_) evconnlistener_set_error_cb(events_.get(), onFailure);
}

int Listener::port() const {
    sockaddr_storage own = {};
    socklen_t size = sizeof own;
    getsockname(socket_.get(), reinterpret_cast<sockaddr*>(&own), &size);
    const bool isIpv6 = own.ss_family == AF_INET6;
    return ntohs(isIpv6 ? reinterpret_cast<const sockaddr_in6&>(own).sin6_port
                        : reinterpret_cast<const sockaddr_in&>(own).sin_port);
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
    UniqueFd peer(accept4(socket_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (peer) {
        sendIfTaken(peer.get(), "Too many connections.\r\n");
        discardInput(peer.get());
    }
    peer.reset();
    reserve_ = openReserve();
}

}  // namespace host
