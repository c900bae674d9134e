#include "host/launcher/peer.h"

#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace host {
namespace {

constexpr int idleSeconds = 10;
constexpr int probeSeconds = 5;
constexpr int probeCount = 2;
constexpr int unansweredMilliseconds = 20'000;

/// Small, so that the kernel does not hold megabytes of a peer that has stopped reading, or for a busy console.
constexpr int bufferBytes = 64 * 1024;

void setOption(int socket, int level, int name, int value) { setsockopt(socket, level, name, &value, sizeof value); }

}  // namespace

void preparePeerSocket(int peer) {
    // The urgent byte of a telnet client is the second of a command and stays behind the first.
    setOption(peer, SOL_SOCKET, SO_OOBINLINE, 1);
    setOption(peer, IPPROTO_TCP, TCP_NODELAY, 1);
    setOption(peer, SOL_SOCKET, SO_SNDBUF, bufferBytes);
    setOption(peer, SOL_SOCKET, SO_RCVBUF, bufferBytes);
    setOption(peer, SOL_SOCKET, SO_KEEPALIVE, 1);
    setOption(peer, IPPROTO_TCP, TCP_KEEPIDLE, idleSeconds);
    setOption(peer, IPPROTO_TCP, TCP_KEEPINTVL, probeSeconds);
    setOption(peer, IPPROTO_TCP, TCP_KEEPCNT, probeCount);
    setOption(peer, IPPROTO_TCP, TCP_USER_TIMEOUT, unansweredMilliseconds);
}

void sendIfTaken(int peer, std::string_view text) {
    // An error shows on the next read.
    static_cast<void>(send(peer, text.data(), text.size(), MSG_DONTWAIT | MSG_NOSIGNAL));
    shutdown(peer, SHUT_WR);
}

bool discardInput(int peer) {
    std::array<char, 4096> unread;
    const ssize_t count = recv(peer, unread.data(), unread.size(), MSG_DONTWAIT);
    return count > 0 || (count < 0 && (errno == EAGAIN || errno == EINTR));
}

}  // namespace host
