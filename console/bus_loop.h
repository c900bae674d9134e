/// Listening to the event bus on a thread of its own.
#pragma once

#include "platform/event_bus.h"

#include <span>

struct BusSubscription {
    const char* event;
    eventbus_callback callback;
    void* userData;
};

/// Opens the bus, subscribes in order, calls `onSubscribed`, where there is one, and runs the callbacks on this thread
/// until markRelayStop() or a failure, which is reported on standard error. Closes the bus and marks the stop before it
/// returns: true after a stop, false after a failure.
bool listenToBus(std::span<const BusSubscription> subscriptions, void (*onSubscribed)() = nullptr);

/// Stops what listens to the event bus in this process: the relay and the event listener.
void markRelayStop();
bool isRelayStopped();
