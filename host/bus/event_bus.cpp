#include "platform/event_bus.h"

#include "host/bus/bus_extensions.h"
#include "host/bus/bus_names.h"
#include "host/bus/connection.h"
#include "host/bus/text_message.h"

#include <cstring>
#include <list>
#include <memory>
#include <optional>
#include <thread>

using host::failWith;
using host::statusOf;

namespace {

using namespace std::chrono_literals;

/// A bus that has ended is restarted. Within this time its subscribers connect again.
constexpr auto returnLimit = 30s;
constexpr auto returnPause = 50ms;

struct Subscription {
    std::string event;
    eventbus_callback callback;
    void* userData;
};

int publishOn(sd_bus* bus, const char* event, const char* payload) {
    sd_bus_message* message = nullptr;
    int result = sd_bus_message_new_signal(bus, &message, host::eventPath, host::eventInterface(event).c_str(),
                                           host::eventMember);
    if (result >= 0) result = host::appendText(message, payload);
    if (result >= 0) result = sd_bus_send(bus, message, nullptr);
    sd_bus_message_unref(message);
    return result;
}

bool isPublishable(const char* event, const char* payload) {
    if (!host::isBusName(event)) return failWith(-EINVAL);
    return std::strlen(payload) < host::longestText || failWith(-EMSGSIZE);
}

}  // namespace

/// One subscription at the bus stands for all of a console's events, so that a session starts with one way there and
/// back instead of ten; which of them somebody wants is looked up here.
struct eventbus {
    host::Connection connection;
    std::list<Subscription> subscriptions;
    std::optional<int> answer;  ///< of the bus to its subscription: 0, or an errno
    std::size_t received = 0;   ///< events
    bool isDaemons = false;     ///< see openDaemonEvents()
};

namespace {

int onEvent(sd_bus_message* message, void* userData, sd_bus_error* /*error*/) {
    auto* bus = static_cast<eventbus*>(userData);
    const char* payload = host::readText(message);
    const std::string_view event = host::afterPrefix(sd_bus_message_get_interface(message), host::eventInterfacePrefix);
    ++bus->received;
    if (payload == nullptr) return 0;
    for (const Subscription& each : bus->subscriptions) {
        if (each.event == event) each.callback(each.userData, payload);
    }
    return 0;
}

int onAnswer(sd_bus_message* answer, void* userData, sd_bus_error* /*error*/) {
    static_cast<eventbus*>(userData)->answer = sd_bus_message_get_errno(answer);
    return 1;
}

/// Waits until the bus hands out the events that `match` names.
bool addMatch(eventbus& bus, const std::string& match) {
    bus.answer.reset();
    const int result = sd_bus_add_match_async(bus.connection.bus(), nullptr, match.c_str(), onEvent, onAnswer, &bus);
    return (result >= 0 || failWith(result)) &&
           host::processUntil(bus.connection.bus(), host::Deadline(host::busLimit), [&] { return bus.answer; }) &&
           (bus.answer == 0 || failWith(-*bus.answer));
}

/// Connects. What was published while there was no connection is lost.
bool resume(eventbus& bus) {
    bus.connection.close();
    if (!bus.connection.open()) return false;
    return bus.isDaemons || addMatch(bus, std::string("type='signal',path='") + host::eventPath + "'");
}

bool resumeWithin(eventbus& bus, std::chrono::milliseconds limit) {
    const host::Deadline deadline(limit);
    while (!resume(bus)) {
        if (deadline.isOver()) return false;
        std::this_thread::sleep_for(returnPause);
    }
    return true;
}

eventbus* openEvents(bool isDaemons) {
    auto bus = std::make_unique<eventbus>();
    bus->isDaemons = isDaemons;
    return resumeWithin(*bus, returnLimit) ? bus.release() : nullptr;
}

}  // namespace

eventbus* eventbus_open() { return openEvents(false); }

eventbus* host::openDaemonEvents() { return openEvents(true); }

int eventbus_subscribe(eventbus* bus, const char* event, eventbus_callback callback, void* user_data) {
    if (!host::isBusName(event)) return statusOf(failWith(-EINVAL));
    bus->subscriptions.push_back({event, callback, user_data});
    return statusOf(!bus->isDaemons || addMatch(*bus, "type='signal',interface='" + host::eventInterface(event) + "'"));
}

int eventbus_fileno(eventbus* bus) { return bus->connection.descriptor(); }

int eventbus_on_data_available(eventbus* bus) {
    const std::size_t before = bus->received;
    int handled = 1;
    // Up to one event: sd-bus reads no further than the end of a message, so that the descriptor tells of the next one
    // and nobody has to look for it in vain.
    while (handled > 0 && bus->received == before) handled = sd_bus_process(bus->connection.bus(), nullptr);
    if (host::isDisconnect(-handled) && !bus->isDaemons) return statusOf(resumeWithin(*bus, returnLimit));
    return statusOf(handled >= 0 || failWith(handled));
}

void eventbus_close(eventbus* bus) { delete bus; }

int eventbus_publish(const char* event, const char* payload) {
    if (!isPublishable(event, payload)) return -1;
    return statusOf(host::sendFromThread([&](sd_bus* bus) { return publishOn(bus, event, payload); }));
}
