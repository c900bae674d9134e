/// All that passes over the device's bus, while a page is open.
#pragma once

#include "host/bus/monitor.h"
#include "host/loop/event_loop.h"

#include <memory>

namespace panel {

class Traffic {
  public:
    Traffic(host::EventLoop& loop, host::Monitor::Report report);

    /// Begin and end to report, across the bus's restarts.
    void start();
    void stop();

  private:
    void report();

    host::EventLoop& loop_;
    host::Monitor::Report report_;
    std::unique_ptr<host::Monitor> monitor_;
    std::unique_ptr<host::ReadWatch> watch_;
    host::Timer retry_;
};

}  // namespace panel
