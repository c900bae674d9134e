#include "console/idle.h"

#include "console/session.h"
#include "settings/leaf.h"

#include <csignal>
#include <sys/select.h>
#include <unistd.h>

namespace {

void waitOneSecond() {
    timeval second{1, 0};
    select(0, nullptr, nullptr, nullptr, &second);
}

void endProcess() { kill(getpid(), SIGKILL); }

/// Runs a clock: an unreadable time-out leaves it as it is, which is as good as never.
[[noreturn]] void runClock(IdleClock& clock, void (IdleClock::*start)(std::uint32_t), bool (IdleClock::*tick)()) {
    const std::optional<int> timeout = readInteger(timeoutLeaf);
    if (timeout) (clock.*start)(static_cast<std::uint32_t>(*timeout));
    for (;;) {
        waitOneSecond();
        if ((clock.*tick)()) endProcess();
    }
}

}  // namespace

void* idleThread(void* sessionContext) {
    runClock(static_cast<SessionContext*>(sessionContext)->idle, &IdleClock::start, &IdleClock::tick);
}

void* idleThreadAlt(void* sessionContext) {
    runClock(static_cast<SessionContext*>(sessionContext)->idle, &IdleClock::startAlt, &IdleClock::tickAlt);
}
