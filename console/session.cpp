#include "console/session.h"

#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace {

constexpr int debugSignal = 12;
constexpr char debugLine[] = "\x1b[1;31;36m[sighandler][644] ffffffffffff \x1b[0m \n";

/// Calls only what a signal handler may call.
void writeDebugLine() {
    const int error = errno;
    if (write(STDERR_FILENO, debugLine, sizeof debugLine - 1) < 0) errno = error;
}

}  // namespace

constinit std::atomic<int> sessionRunning = 1;
constinit std::atomic<int> sessionAuthenticated = 0;

void onSignal(int number) {
    if (number == SIGHUP) sessionRunning = 0;
    if (number == debugSignal) writeDebugLine();
}
