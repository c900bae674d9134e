#include "console/bus_loop.h"

#include "console/mutex.h"
#include "text/fixed_text.h"

#include <cerrno>
#include <cstdio>
#include <poll.h>

namespace {

Mutex relayStopMutex;
bool relayStop GUARDED_BY(relayStopMutex) = false;

bool failWith(const char* call) {
    std::perror(call);
    return false;
}

bool subscribe(eventbus* bus, const BusSubscription& subscription) {
    if (eventbus_subscribe(bus, subscription.event, subscription.callback, subscription.userData) == 0) return true;
    const int error = errno;
    FixedText<128> text;
    text.appendFormat("eventbus_subscribe %s", subscription.event);
    errno = error;
    return failWith(text.c_str());
}

bool subscribeAll(eventbus* bus, std::span<const BusSubscription> subscriptions) {
    for (const BusSubscription& subscription : subscriptions) {
        if (!subscribe(bus, subscription)) return false;
    }
    return true;
}

/// Waits without a limit; an interruption counts as input: the read then finds none.
bool waitForEvents(eventbus* bus) {
    pollfd input{eventbus_fileno(bus), POLLIN, 0};
    return poll(&input, 1, -1) >= 0 || errno == EINTR;
}

bool serveEvents(eventbus* bus) {
    while (!isRelayStopped()) {
        if (!waitForEvents(bus)) return failWith("poll");
        if (eventbus_on_data_available(bus) != 0) return failWith("eventbus_on_data_available");
    }
    return true;
}

bool listen(std::span<const BusSubscription> subscriptions, void (*onSubscribed)()) {
    eventbus* bus = eventbus_open();
    const bool isSubscribed =
        bus != nullptr ? subscribeAll(bus, subscriptions) : failWith("[doListenEventLoop]eventbus_open");
    if (isSubscribed && onSubscribed != nullptr) onSubscribed();
    const bool stopped = isSubscribed && serveEvents(bus);
    eventbus_close(bus);
    return stopped;
}

}  // namespace

bool listenToBus(std::span<const BusSubscription> subscriptions, void (*onSubscribed)()) {
    const bool stopped = listen(subscriptions, onSubscribed);
    markRelayStop();
    return stopped;
}

void markRelayStop() {
    const MutexLock lock(relayStopMutex);
    relayStop = true;
}

bool isRelayStopped() {
    const MutexLock lock(relayStopMutex);
    return relayStop;
}
