/// The device's four ports and the way from each to its sessions.
#pragma once

#include "console/ports.h"
#include "host/launcher/listener.h"
#include "host/launcher/options.h"
#include "host/launcher/sessions.h"

#include <array>
#include <iterator>
#include <memory>
#include <string>

namespace host {

class Ports {
  public:
    Ports(EventLoop& loop, const Options& options, Sessions& sessions);

    /// Opens all four; false with the failure on standard error when one cannot be opened and has no fallback.
    bool open();

    /// Moves the telnet port; sessions stay. False with errno set and the old port kept when the new one is taken.
    bool moveTelnet(int port);

    /// Takes no more connections.
    void close();

    /// "ADDR PORT A B C", with the ports they have got.
    std::string description() const;

    int telnetPort() const { return listeners_.front()->port(); }

  private:
    bool openTelnet();
    std::unique_ptr<Listener> openPort(std::size_t index, int port);

    EventLoop& loop_;
    const Options& options_;
    Sessions& sessions_;
    std::array<std::unique_ptr<Listener>, std::size(consolePorts)> listeners_;
    int failedPort_ = 0;
};

}  // namespace host
