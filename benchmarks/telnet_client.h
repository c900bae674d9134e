/// An operator who comes through the launcher.
#pragma once

#include "host/loop/unique_fd.h"

#include <string>
#include <string_view>

namespace bench {

class TelnetClient {
  public:
    /// Connects to the port on 127.0.0.1. Throws std::runtime_error on failure, as ask() does.
    explicit TelnetClient(int port);

    /// Sends a line and waits for the reply, whatever stands around it.
    void ask(std::string_view line, std::string_view reply);

  private:
    host::UniqueFd socket_;
    std::string received_;
};

}  // namespace bench
