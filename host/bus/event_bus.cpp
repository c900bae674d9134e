#include "platform/event_bus.h"

#include "host/bus/bus_names.h"
#include "host/bus/connection.h"
#include "host/bus/outgoing.h"
#include "host/bus/subscriptions.h"
#include "host/bus/text_message.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <list>
#include <memory>
#include <thread>

using host::failBus;
using host::statusOf;

namespace {

using namespace std::chrono_literals;

/// A bus that has ended is started again, and whoever listened to it hears it again, unless it stays away for longer.
constexpr auto returnLimit = 30s;
constexpr auto returnPause = 50ms;

/// How long a change waits for the bus to confirm what its own process wants to hear.
constexpr auto confirmationLimit = 500ms;
constexpr auto confirmationPause = 100us;

struct Subscription {
    eventbus* bus;
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
    if (!host::isBusName(event)) return failBus(-EINVAL);
    return std::strlen(payload) < host::longestText || failBus(-EMSGSIZE);
}

}  // namespace

struct eventbus {
    host::Connection connection;
    std::list<Subscription> subscriptions;  // the bus keeps pointers to them
    std::size_t asked = 0;                  // how many of them this connection has asked the bus for
    std::size_t confirmed = 0;              // how many of those it has answered
    int refusal = 0;                        // the error of one that it refused
    std::size_t received = 0;               // events
    bool endsWithBus = false;
};

namespace {

std::atomic<long> unconfirmed = 0;      // subscriptions of this process that the bus has not answered
thread_local long unconfirmedHere = 0;  // those among them whose answers this thread itself takes in

void countUnconfirmed(long more) {
    unconfirmed += more;
    unconfirmedHere += more;
}

/// So that a console shows what it changed in its first moment, while another thread of it still subscribes.
void awaitConfirmations() {
    const host::Deadline deadline(confirmationLimit);
    while (unconfirmed > unconfirmedHere && !deadline.isOver()) std::this_thread::sleep_for(confirmationPause);
}

int onEvent(sd_bus_message* message, void* userData, sd_bus_error* /*error*/) {
    const auto* subscription = static_cast<const Subscription*>(userData);
    const char* payload = host::readText(message);
    ++subscription->bus->received;
    if (payload != nullptr) subscription->callback(subscription->userData, payload);
    return 0;
}

int onSubscribed(sd_bus_message* reply, void* userData, sd_bus_error* /*error*/) {
    eventbus* bus = static_cast<const Subscription*>(userData)->bus;
    const int error = sd_bus_message_get_errno(reply);
    if (error != 0) bus->refusal = error;
    ++bus->confirmed;
    countUnconfirmed(-1);
    return 1;
}

bool subscribe(Subscription& subscription) {
    const std::string match = "type='signal',interface='" + host::eventInterface(subscription.event.c_str()) + "'";
    const int result = sd_bus_add_match_async(subscription.bus->connection.bus(), nullptr, match.c_str(), onEvent,
                                              onSubscribed, &subscription);
    if (result < 0) return failBus(result);
    ++subscription.bus->asked;
    countUnconfirmed(1);
    return true;
}

void disconnect(eventbus& bus) {
    countUnconfirmed(static_cast<long>(bus.confirmed) - static_cast<long>(bus.asked));
    bus.asked = bus.confirmed = 0;
    bus.refusal = 0;
    bus.connection.close();
}

/// Connects with the subscriptions there are. What was published while there was no connection is lost.
bool resume(eventbus& bus) {
    disconnect(bus);
    return bus.connection.open() && std::all_of(bus.subscriptions.begin(), bus.subscriptions.end(), subscribe);
}

bool resumeWithin(eventbus& bus, std::chrono::milliseconds limit) {
    const host::Deadline deadline(limit);
    while (!resume(bus)) {
        if (deadline.isOver()) return false;
        std::this_thread::sleep_for(returnPause);
    }
    return true;
}

}  // namespace

eventbus* eventbus_open() {
    auto bus = std::make_unique<eventbus>();
    return resumeWithin(*bus, host::busLimit) ? bus.release() : nullptr;
}

int eventbus_subscribe(eventbus* bus, const char* event, eventbus_callback callback, void* user_data) {
    if (!host::isBusName(event)) return statusOf(failBus(-EINVAL));
    return statusOf(subscribe(bus->subscriptions.emplace_back(Subscription{bus, event, callback, user_data})));
}

bool host::waitUntilSubscribed(eventbus* bus) {
    const auto isConfirmed = [bus] { return bus->confirmed == bus->asked; };
    return processUntil(bus->connection.bus(), Deadline(busLimit), isConfirmed) &&
           (bus->refusal == 0 || failBus(-bus->refusal));
}

void host::endWithBus(eventbus* bus) { bus->endsWithBus = true; }

int eventbus_fileno(eventbus* bus) { return bus->connection.descriptor(); }

int eventbus_on_data_available(eventbus* bus) {
    const std::size_t before = bus->received;
    int handled = 1;
    // Up to one event: sd-bus reads no further than the end of a message, so that the descriptor tells of the next one
    // and nobody has to look for it in vain.
    while (handled > 0 && bus->received == before) handled = sd_bus_process(bus->connection.bus(), nullptr);
    if (handled >= 0) handled = -bus->refusal;
    if (host::isDisconnect(-handled) && !bus->endsWithBus) return statusOf(resumeWithin(*bus, returnLimit));
    return statusOf(handled >= 0 || failBus(handled));
}

void eventbus_close(eventbus* bus) {
    if (bus != nullptr) disconnect(*bus);
    delete bus;
}

int eventbus_publish(const char* event, const char* payload) {
    if (!isPublishable(event, payload)) return -1;
    awaitConfirmations();
    return statusOf(host::sendFromThread([&](sd_bus* bus) { return publishOn(bus, event, payload); }));
}
