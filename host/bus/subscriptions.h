/// What the device's own daemons ask of the event bus beyond its C interface.
#pragma once

struct eventbus;

namespace host {

/// For a daemon that is started again along with the bus: its end makes eventbus_on_data_available()
/// fail at once, where a console waits for the bus to return.
void endWithBus(eventbus* bus);

}  // namespace host
