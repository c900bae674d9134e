/// Relays from other daemons to the operator of a console on port 9001 (bytes) or 9002 (texts).
#pragma once

#include "console/session.h"

/// Offers the relay of the session's port on the LPC bus and serves it. Returns -1 when it cannot be set up, with the
/// reason on standard error, and for a port that has none; otherwise never.
int consoleLpcService(const SessionContext& session);

/// Thread body around consoleLpcService().
void* relayThread(void* sessionContext);

/// The byte relay over the event bus instead: serves until markRelayStop() or the bus fails. Returns 0 after a stop, -1
/// on a failure.
int relayListener();
