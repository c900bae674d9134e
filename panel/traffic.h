/// All that passes over the device's bus, while somebody looks.
#pragma once

#include "host/bus/monitor.h"
#include "host/loop/event_loop.h"

#include <memory>

namespace panel {

class Traffic {
  public:
    Traffic(host::EventLoop& loop, host::Monitor::Report report);

    /// Reports from now on, if it does not yet, across the bus's restarts, or no more.
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
