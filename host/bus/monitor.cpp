#include "host/bus/monitor.h"

#include "host/bus/bus_names.h"
#include "host/bus/text_message.h"

namespace host {
namespace {

/// Asks the bus for a copy of every event and every call. From its answer on the connection can send nothing.
int becomeMonitor(sd_bus* bus) {
    const std::string events = std::string("type='signal',path='") + eventPath + "'";
    const std::string calls = std::string("type='method_call',interface='") + callInterface + "'";
    return sd_bus_call_method(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.Monitoring",
                              "BecomeMonitor", nullptr, nullptr, "asu", 2, events.c_str(), calls.c_str(), 0);
}

}  // namespace

bool Monitor::open() {
    if (!connection_.open() || !connection_.flush(Deadline(busLimit))) return false;
    int result = sd_bus_add_filter(connection_.bus(), nullptr, onMessage, this);
    if (result >= 0) result = becomeMonitor(connection_.bus());
    return result >= 0 || failWith(result);
}

void Monitor::run() {
    while (reportWaiting()) sd_bus_wait(connection_.bus(), UINT64_MAX);
}

bool Monitor::reportWaiting() {
    int handled = 1;
    while (handled > 0) handled = sd_bus_process(connection_.bus(), nullptr);
    return handled == 0 || failWith(handled);
}

/// Takes every message, so that sd-bus answers none of those that are meant for others.
int Monitor::onMessage(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    const char* text = readText(message);
    uint8_t type = 0;
    sd_bus_message_get_type(message, &type);
    BusTraffic traffic{{}, {}, text};
    if (type == SD_BUS_MESSAGE_METHOD_CALL) {
        traffic.service = afterPrefix(sd_bus_message_get_path(message), callPathPrefix);
        traffic.name = sd_bus_message_get_member(message);
    } else {
        traffic.name = afterPrefix(sd_bus_message_get_interface(message), eventInterfacePrefix);
    }
    if (text != nullptr) static_cast<const Monitor*>(self)->report_(traffic);
    return 1;
}

}  // namespace host
