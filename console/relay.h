/// Relays from other daemons to the operator of a console on port 9001 (bytes) or 9002 (texts).
#pragma once

#include "console/session.h"

/// The time during which a relay cannot be offered. It is reported once, however often the bus is asked meanwhile.
class RelayOutage {
  public:
    /// Reports the failed call on standard error, unless this outage has been reported already. A name that is
    /// taken is no outage: another session on the same port, or one that is about to end, offers the relay. Returns -1.
    int report(const char* call);

    void end() { isReported_ = false; }

  private:
    bool isReported_ = false;
};

bool hasRelay(int reportedPort);

/// Offers the relay of the session's port on the LPC bus and serves it until a call fails, which it reports to
/// `outage`. Returns -1 then, and at once for a port that has no relay.
int consoleLpcService(const SessionContext& session, RelayOutage& outage);

/// Thread body: offers the relay for as long as the session lives, and asks again every second while it cannot have it.
/// Never returns.
void* relayThread(void* sessionContext);

/// The byte relay over the event bus instead: serves until markRelayStop() or the bus fails. Returns 0 after a stop, -1
/// on a failure.
int relayListener();
