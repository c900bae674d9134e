#include "host/launcher/ports.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace host {

Ports::Ports(EventLoop& loop, const Options& options, Sessions& sessions)
    : loop_(loop), options_(options), sessions_(sessions) {}

/// The raw ports first: none of them gives way, the telnet port may.
bool Ports::open() {
    for (std::size_t index = 1; index < listeners_.size(); ++index) {
        listeners_[index] = openPort(index, options_.rawPorts[index - 1]);
        if (!listeners_[index]) return false;
    }
    return openTelnet();
}

bool Ports::openTelnet() {
    auto& telnet = listeners_.front();
    telnet = openPort(0, options_.telnetPort.value_or(Options::defaultTelnetPort));
    const bool mayGiveWay = !telnet && options_.fallbackPort;
    if (mayGiveWay) telnet = openPort(0, *options_.fallbackPort);
    if (mayGiveWay && !telnet) telnet = openPort(0, 0);
    if (mayGiveWay && telnet)
        std::fprintf(stderr, "launcher: listening on %s %d instead\n", options_.listen.c_str(), telnet->port());
    return telnet != nullptr;
}

bool Ports::moveTelnet(int port) {
    std::unique_ptr<Listener>& telnet = listeners_.front();
    if (telnet->port() == port) return true;
    std::unique_ptr<Listener> moved = openPort(0, port);
    if (!moved) return false;
    telnet = std::move(moved);
    return true;
}

void Ports::close() {
    for (auto& listener : listeners_) listener.reset();
}

std::string Ports::description() const {
    std::string text = options_.listen;
    for (const auto& listener : listeners_) text.append(" ").append(std::to_string(listener->port()));
    return text;
}

std::unique_ptr<Listener> Ports::openPort(std::size_t index, int port) {
    const auto admit = [this, index](Peer peer) { sessions_.admit(std::move(peer), consolePorts[index]); };
    auto listener = Listener::open(loop_, options_.listen, port, admit);
    const int error = errno;
    // Every console repeats the request that one of them has made. One report is enough.
    const bool isNews = std::exchange(failedPort_, listener ? 0 : port) != port;
    if (!listener && isNews)
        std::fprintf(stderr, "launcher: cannot listen on %s %d: %s\n", options_.listen.c_str(), port,
                     std::strerror(error));
    errno = error;
    return listener;
}

}  // namespace host
