/// The device's four ports and the way from each to its sessions.
#pragma once

#include "host/launcher/console_port.h"
#include "host/launcher/launch_options.h"
#include "host/launcher/listener.h"
#include "host/launcher/sessions.h"

#include <array>
#include <memory>
#include <string>

namespace host {

class Doors {
  public:
    Doors(EventLoop& loop, const LaunchOptions& options, Sessions& sessions);

    /// Opens all four; false with errno set and the failure on standard error when one cannot be opened.
    bool open();

    /// Moves the telnet port; sessions stay. False with errno set and the old port kept when the new one is taken.
    bool moveTelnet(int port);

    /// Takes no more connections.
    void close();

    /// "ADDR PORT A B C", with the ports they have got.
    std::string description() const;

  private:
    std::unique_ptr<Listener> openDoor(std::size_t index, int port);

    EventLoop& loop_;
    const LaunchOptions& options_;
    Sessions& sessions_;
    std::array<std::unique_ptr<Listener>, consolePorts.size()> listeners_;
};

}  // namespace host
