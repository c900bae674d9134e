#include "benchmarks/telnet_client.h"

#include <arpa/inet.h>
#include <array>
#include <cstdint>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>

namespace bench {

TelnetClient::TelnetClient(int port) : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const timeval patience{10, 0};
    setsockopt(socket_.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("no connection to the launcher");
}

void TelnetClient::ask(std::string_view line, std::string_view reply) {
    if (send(socket_.get(), line.data(), line.size(), MSG_NOSIGNAL) < 0) throw std::runtime_error("nothing sent");
    std::array<char, 1024> bytes;
    while (received_.find(reply) == std::string::npos) {
        const ssize_t count = recv(socket_.get(), bytes.data(), bytes.size(), 0);
        if (count <= 0) throw std::runtime_error("no reply through the launcher: " + received_);
        received_.append(bytes.data(), static_cast<std::size_t>(count));
    }
    received_.clear();
}

}  // namespace bench
