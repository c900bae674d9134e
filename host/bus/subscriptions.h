/// For those who must know that they will hear an event before they go on.
#pragma once

struct eventbus;

namespace host {

/// Waits until the bus has confirmed all subscriptions of `bus`, so that nothing published from then on is missed.
/// False with errno set when one was refused or the bus does not answer in time.
bool waitUntilSubscribed(eventbus* bus);

}  // namespace host
