/// The least that it takes to tell many consoles something: a datagram for each.
#pragma once

#include "benchmarks/crowd.h"

#include <filesystem>
#include <string_view>
#include <sys/un.h>
#include <vector>

namespace bench {

class Announcer {
  public:
    /// `program` shows what comes to the socket whose path it is given; the sockets are made in `folder`.
    Announcer(std::filesystem::path program, std::filesystem::path folder);

    /// Starts further listeners until there are `count`.
    void growTo(std::size_t count);

    /// Tells all of them, and waits until each has shown it.
    void announce(std::string_view text);

  private:
    std::filesystem::path program_;
    std::filesystem::path folder_;
    host::UniqueFd socket_;
    std::vector<sockaddr_un> addresses_;
    Crowd listeners_;
};

}  // namespace bench
