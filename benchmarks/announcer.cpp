#include "benchmarks/announcer.h"

#include <cstring>
#include <stdexcept>
#include <string>
#include <sys/socket.h>

namespace bench {
namespace {

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    return address;
}

}  // namespace

Announcer::Announcer(std::filesystem::path program, std::filesystem::path folder)
    : program_(std::move(program)), folder_(std::move(folder)), socket_(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    std::filesystem::create_directories(folder_);
}

void Announcer::growTo(std::size_t count) {
    while (listeners_.size() < count) {
        const std::string path = folder_ / std::to_string(listeners_.size());
        listeners_.add({program_, {program_.filename(), path}, {}}).await("ready\r\n");
        addresses_.push_back(addressOf(path));
    }
}

void Announcer::announce(std::string_view text) {
    for (const sockaddr_un& address : addresses_) {
        const auto* to = reinterpret_cast<const sockaddr*>(&address);
        if (sendto(socket_.get(), text.data(), text.size(), 0, to, sizeof address) < 0)
            throw std::runtime_error(std::string("sendto ") + address.sun_path);
    }
    listeners_.await(text);
}

}  // namespace bench
