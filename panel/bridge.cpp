#include "panel/bridge.h"

#include "platform/user_config.h"

#include <netdb.h>
#include <sys/socket.h>

namespace panel {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;

/// Where a client finds a server that listens on every address.
std::string reachable(const std::string& address) {
    if (address == "0.0.0.0") return "127.0.0.1";
    return address == "::" ? "::1" : address;
}

std::string telnetPort() {
    int port = 0;
    user_config_query_int(R"({"network":{"telnet":{"telnetPort":0}}})", &port);
    return std::to_string(port);
}

/// A failure shows when the connection is used.
host::UniqueFd connectTo(const std::string& address) {
    addrinfo hints = {};
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(reachable(address).c_str(), telnetPort().c_str(), &hints, &found) != 0) return {};
    host::UniqueFd socket(::socket(found->ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    static_cast<void>(connect(socket.get(), found->ai_addr, found->ai_addrlen));
    freeaddrinfo(found);
    return socket;
}

}  // namespace

Bridge::Bridge(host::EventLoop& loop, const std::string& address, OnOutput onOutput, host::Callback onEnd)
    : socket_(connectTo(address)) {
    const auto onInput = [this, onOutput = std::move(onOutput)](const std::string& bytes) {
        const std::string output = telnet_.decode(bytes);
        if (!output.empty()) onOutput(output);
    };
    channel_ = std::make_unique<host::Channel>(
        loop, socket_.get(), patience,
        host::Channel::Handlers{onInput, [] {}, [onEnd = std::move(onEnd)](host::Channel::End) { onEnd(); }});
}

}  // namespace panel
