/// A connection to the device's bus.
#pragma once

#include "host/bus/deadline.h"

#include <cerrno>
#include <functional>
#include <systemd/sd-bus.h>

namespace host {

/// How long the bus may take to let a connection in or to take a message.
inline constexpr std::chrono::milliseconds busLimit{2000};

/// Belongs to the thread that opened it. sd-bus refuses it to a forked child, which finds it closed and opens its own.
class Connection {
  public:
    Connection() = default;
    ~Connection() { close(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Connects, if it is not open already. This is bounded by busLimit; authentication follows later, along with
    /// what is sent. False with errno set on failure.
    bool open();

    bool isOpen() const;

    /// Leaves errno as it is.
    void close();

    sd_bus* bus() const { return bus_; }

    int descriptor() const { return descriptor_; }

    /// Waits until the bus has let the connection in and has taken all that was sent. False with errno set.
    bool flush(Deadline deadline);

  private:
    sd_bus* bus_ = nullptr;
    int descriptor_ = -1;
};

/// Sends one message on the bus it is given; the result is sd-bus's. It may be asked a second time, on a new bus.
using Send = std::function<int(sd_bus* bus)>;

/// Runs `send` on this thread's own connection, which is opened when it is needed and kept, and waits until the bus has
/// taken the message. A kept connection that turns out dead, so that nothing was sent, is replaced once. False with
/// errno set on failure, in bounded time.
bool sendFromThread(const Send& send);

/// errno from one of sd-bus's negative results; always false.
inline bool failWith(int result) {
    errno = -result;
    return false;
}

/// Whether an errno means that the bus has ended the connection.
inline bool isDisconnect(int error) { return error == ECONNRESET || error == ENOTCONN || error == EPIPE; }

/// How the C interfaces report: 0 for success, with errno left as it is for failure.
inline int statusOf(bool success) { return success ? 0 : -1; }

/// Handles what comes in on `bus` until `isDone()`. False with errno set when the bus is gone or the time is over.
template <typename Condition>
bool processUntil(sd_bus* bus, Deadline deadline, Condition isDone) {
    while (!isDone()) {
        const int handled = sd_bus_process(bus, nullptr);
        if (handled < 0) return failWith(handled);
        if (handled > 0) continue;
        // What was handled last, or written just now, may have settled it: only then is there something to wait for.
        if (isDone()) return true;
        if (deadline.isOver()) return failWith(-ETIMEDOUT);
        const int ready = sd_bus_wait(bus, static_cast<uint64_t>(deadline.left().count()));
        if (ready < 0 && ready != -EINTR) return failWith(ready);
    }
    return true;
}

}  // namespace host
