/// What the device's own programs ask of the bus beyond the C interfaces.
#pragma once

#include <chrono>
#include <optional>
#include <string>

struct eventbus;

namespace host {

/// The reply to a call; nothing with errno set when it fails or does not come within the limit.
std::optional<std::string> replyTo(const char* service, const char* method, const char* text,
                                   std::chrono::milliseconds limit);

/// eventbus_open() for a daemon. It is started again along with the bus, whose end makes eventbus_on_data_available()
/// fail at once, where a console waits for the bus to return. And it hears few events: the bus wakes it for these
/// alone.
eventbus* openDaemonEvents();

}  // namespace host
