#include "host/launcher/doors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace host {

Doors::Doors(EventLoop& loop, const LaunchOptions& options, Sessions& sessions)
    : loop_(loop), options_(options), sessions_(sessions) {}

bool Doors::open() {
    const auto [a, b, c] = options_.rawPorts;
    const std::array<int, consolePorts.size()> ports = {options_.telnetPort, a, b, c};
    for (std::size_t index = 0; index < ports.size(); ++index) {
        listeners_[index] = openDoor(index, ports[index]);
        if (!listeners_[index]) return false;
    }
    return true;
}

bool Doors::moveTelnet(int port) {
    std::unique_ptr<Listener>& telnet = listeners_.front();
    if (telnet->port() == port) return true;
    std::unique_ptr<Listener> moved = openDoor(0, port);
    if (!moved) return false;
    telnet = std::move(moved);
    return true;
}

void Doors::close() {
    for (auto& listener : listeners_) listener.reset();
}

std::string Doors::description() const {
    std::string text = options_.listen;
    for (const auto& listener : listeners_) text.append(" ").append(std::to_string(listener->port()));
    return text;
}

std::unique_ptr<Listener> Doors::openDoor(std::size_t index, int port) {
    const auto admit = [this, index](Peer peer) { sessions_.admit(std::move(peer), consolePorts[index]); };
    auto listener = Listener::open(loop_, options_.listen, port, admit);
    if (!listener) {
        const int error = errno;
        std::fprintf(stderr, "launcher: cannot listen on %s %d: %s\n", options_.listen.c_str(), port,
                     std::strerror(error));
        errno = error;
    }
    return listener;
}

}  // namespace host
