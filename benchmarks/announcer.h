/// The minimum for sending a text to many consoles: a datagram for each.
#pragma once

#include "benchmarks/session.h"
#include "host/base/unix_address.h"

#include <filesystem>
#include <stdexcept>
#include <sys/socket.h>

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
            const std::string path = folder_ / std::to_string(listeners_.size());
            addresses_.emplace_back(path);
            listeners_.add({program_, {program_.filename(), path}}).await("ready\r\n");
        }
    }

    /// Sends it to all of them, and waits until each has shown it.
    void announce(std::string_view text) {
        for (const host::UnixAddress& address : addresses_) {
            if (sendto(socket_.get(), text.data(), text.size(), 0, address.get(), address.size()) < 0)
                throw std::runtime_error("a listener is gone");
        }
        listeners_.await(text);
    }

  private:
    std::filesystem::path program_;
    std::filesystem::path folder_;
    host::UniqueFd socket_;
    std::vector<host::UnixAddress> addresses_;
    Crowd listeners_;
};

}  // namespace bench
