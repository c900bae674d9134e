/// The state of one console session: what the line reader, the signal handler and the threads share.
#pragma once

#include "console/idle.h"
#include "console/line_turns.h"

#include <atomic>

// NOLINTBEGIN(bugprone-dynamic-static-initializers): clang-tidy 14 does not know constinit.

/// Set for good by the entry routine; 0 after a hang-up, which ends the line reader.
extern constinit std::atomic<int> sessionRunning;

/// 1 once the operator may see what happens on the device.
extern constinit std::atomic<int> sessionAuthenticated;

// NOLINTEND(bugprone-dynamic-static-initializers)

/// The signal handler: SIGHUP ends the line reader, signal 12 writes a line for whoever debugs, and any other does
/// nothing.
void onSignal(int number);

/// Owned by the entry routine for the life of the process and handed to every thread.
struct SessionContext {
    int kind = 0;           ///< 1 switches the link monitor on; the entry routine makes every console a 4
    int reportedPort = 23;  ///< the listening port that the connection came in by: 23, 9000, 9001 or 9002
    IdleClock idle;
    LineTurns turns;
};
