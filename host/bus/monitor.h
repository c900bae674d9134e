/// Watches all that passes over the bus.
#pragma once

#include "host/bus/connection.h"

#include <functional>
#include <string_view>

namespace host {

/// One message: an event when `service` is empty, else an LPC call. All texts live until the callback returns.
struct BusTraffic {
    std::string_view service;
    std::string_view name;  ///< of the event, or of the method
    const char* text;
};

class Monitor {
  public:
    using Report = std::function<void(const BusTraffic&)>;

    explicit Monitor(Report report) : report_(std::move(report)) {}

    /// Begins to watch: all that is published or called after this returned true is reported. False with errno set.
    bool open();

    /// Reports until the bus is gone; errno says why.
    void run();

    /// For those who wait for other things, too: what to wait for, and what to do when it has input. False with errno
    /// set when the bus is gone.
    int descriptor() const { return connection_.descriptor(); }
    bool reportWaiting();

  private:
    static int onMessage(sd_bus_message* message, void* self, sd_bus_error* error);

    Connection connection_;
    Report report_;
};

}  // namespace host
