/// What the device's own daemons ask of the event bus beyond its C interface.
#pragma once

struct eventbus;

namespace host {

/// Waits until the bus has confirmed all subscriptions of `bus`, so that nothing published from then on is missed.
/// False with errno set when one was refused or the bus does not answer in time.
bool waitUntilSubscribed(eventbus* bus);

/// For a daemon that is started again along with the bus: its end makes eventbus_on_data_available() fail at once,
/// where a console waits for the bus to return.
void endWithBus(eventbus* bus);

}  // namespace host
