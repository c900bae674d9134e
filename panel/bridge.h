/// A console in a page: a telnet session through the launcher like any other.
#pragma once

#include "host/base/unique_fd.h"
#include "host/launcher/telnet_stream.h"
#include "host/loop/channel.h"
#include "host/loop/event_loop.h"

#include <functional>
#include <memory>
#include <string>

namespace panel {

class Bridge {
  public:
    using OnOutput = std::function<void(const std::string& bytes)>;

    /// Calls the launcher at that address. `onEnd` is called once, when there is no connection or it has ended; it may
    /// destroy the bridge.
    Bridge(host::EventLoop& loop, const std::string& address, OnOutput onOutput, host::Callback onEnd);

    void type(std::string_view bytes) { channel_->send(bytes); }

  private:
    host::TelnetStream telnet_{host::TelnetStream::Kind::raw};
    host::UniqueFd socket_;
    std::unique_ptr<host::Channel> channel_;
};

}  // namespace panel
