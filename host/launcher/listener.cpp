#include "host/launcher/listener.h"

#include "host/launcher/peer.h"

#include <array>
#include <cerrno>
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

/// Any socket address, as the socket calls take it.
class SocketAddress {
  public:
    sockaddr* get() { return reinterpret_cast<sockaddr*>(&storage_); }
    socklen_t* size() { return &size_; }
    int port() const {
        const bool isIpv6 = storage_.ss_family == AF_INET6;
        return ntohs(isIpv6 ? reinterpret_cast<const sockaddr_in6&>(storage_).sin6_port
                            : reinterpret_cast<const sockaddr_in&>(storage_).sin_port);
    }
    /// The numeric address; an IPv4 peer of an IPv6 socket has its IPv4 address.
    std::string text() {
        std::array<char, NI_MAXHOST> name = {};
        getnameinfo(get(), size_, name.data(), name.size(), nullptr, 0, NI_NUMERICHOST);
        const std::string_view address = name.data();
        return std::string(address.starts_with(mappedPrefix) ? address.substr(mappedPrefix.size()) : address);
    }

  private:
    sockaddr_storage storage_ = {};
    socklen_t size_ = sizeof storage_;
};

UniqueFd listenOn(const addrinfo& address) {
    UniqueFd socket(::socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const int on = 1;
    setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    // For the connections: the urgent byte of a telnet client is the second of a command and stays behind the first.
    setsockopt(socket.get(), SOL_SOCKET, SO_OOBINLINE, &on, sizeof on);
    if (bind(socket.get(), address.ai_addr, address.ai_addrlen) != 0 || listen(socket.get(), backlog) != 0)
        socket.reset();
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
    UniqueFd socket = listenOn(*found);
    const int error = errno;
    freeaddrinfo(found);
    errno = error;
    return socket ? std::make_unique<Listener>(loop, std::move(socket), std::move(onPeer)) : nullptr;
}

Listener::Listener(EventLoop& loop, UniqueFd socket, OnPeer onPeer)
    : socket_(std::move(socket)),
      reserve_(openReserve()),
      onPeer_(std::move(onPeer)),
      watch_(loop, socket_.get(), [this] { acceptWaiting(); }),
      resume_(loop, [this] {
          if (!reserve_) reserve_ = openReserve();
          watch_.resume();
      }) {}

int Listener::port() const {
    SocketAddress own;
    getsockname(socket_.get(), own.get(), own.size());
    return own.port();
}

/// A few at a time, so that a flood of connections does not hold up the sessions.
void Listener::acceptWaiting() {
    for (int count = 0; count < acceptedAtOnce && acceptOne(); ++count) {
    }
}

bool Listener::acceptOne() {
    SocketAddress address;
    UniqueFd peer(accept4(socket_.get(), address.get(), address.size(), SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (peer) {
        onPeer_({std::move(peer), address.text()});
        return true;
    }
    onAcceptFailure();
    return false;
}

void Listener::onAcceptFailure() {
    const bool outOfDescriptors = errno == EMFILE;
    if (outOfDescriptors && reserve_) return refuseOne();
    if (!outOfDescriptors && errno != ENFILE && errno != ENOBUFS && errno != ENOMEM) return;
    // The waiting connection keeps the socket readable: without a pause the loop would spin.
    watch_.pause();
    resume_.start(pauseAfterFailure);
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
