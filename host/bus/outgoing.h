/// Sending over the calling thread's own connection.
#pragma once

#include <functional>
#include <systemd/sd-bus.h>

namespace host {

/// Sends one message on the bus it is given; the result is sd-bus's. It may be asked a second time, on a new bus.
using Send = std::function<int(sd_bus* bus)>;

/// Runs `send` on this thread's connection, which is opened when it is needed and kept, and waits until the bus has
/// taken the message. A kept connection that turns out dead, so that nothing was sent, is replaced once. False with
/// errno set on failure, in bounded time.
bool sendFromThread(const Send& send);

}  // namespace host
