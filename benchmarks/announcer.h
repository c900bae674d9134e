/// The least that it takes to tell many consoles something: a datagram for each.
#pragma once

#include "benchmarks/session.h"

#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>

namespace bench {

class Announcer {
  public:
    /// `program` shows what comes to the socket whose path it is given; the sockets are made in `folder`.
    Announcer(std::filesystem::path program, std::filesystem::path folder)
        : program_(std::move(program)),
          folder_(std::move(folder)),
          socket_(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        std::filesystem::create_directories(folder_);
    }

    /// Starts further listeners until there are `count`.
    void growTo(std::size_t count) {
        while (listeners_.size() < count) {
            sockaddr_un& address = addresses_.emplace_back(sockaddr_un{AF_UNIX, {}});
            const std::string path = folder_ / std::to_string(listeners_.size());
            std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
            listeners_.add({program_, {program_.filename(), path}}).await("ready\r\n");
        }
    }

    /// Tells all of them, and waits until each has shown it.
    void announce(std::string_view text) {
        for (const sockaddr_un& address : addresses_) {
            const auto* to = reinterpret_cast<const sockaddr*>(&address);
            if (sendto(socket_.get(), text.data(), text.size(), 0, to, sizeof address) < 0)
                throw std::runtime_error(std::string("sendto ") + address.sun_path);
        }
        listeners_.await(text);
    }

  private:
    std::filesystem::path program_;
    std::filesystem::path folder_;
    host::UniqueFd socket_;
    std::vector<sockaddr_un> addresses_;
    Crowd listeners_;
};

}  // namespace bench
