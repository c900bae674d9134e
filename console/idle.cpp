#include "console/idle.h"

#include "console/session.h"
#include "settings/leaf.h"
#include "system/network_leaves.h"

#include <csignal>
#include <sys/select.h>
#include <unistd.h>

namespace {

void waitOneSecond() {
    timeval second{1, 0};
    select(0, nullptr, nullptr, nullptr, &second);
}

void endProcess() { kill(getpid(), SIGKILL); }

/// Runs a clock. With an unreadable time-out it stays at its initial value, which means never.
[[noreturn]] void runClock(IdleClock& clock, void (IdleClock::*start)(std::uint32_t), bool (IdleClock::*tick)()) {
    const std::optional<int> timeout = readInteger(timeoutLeaf);
    if (timeout) (clock.*start)(static_cast<std::uint32_t>(*timeout));
    for (;;) {
        waitOneSecond();
        if ((clock.*tick)()) endProcess();
    }
}

}  // namespace

void IdleClock::start(std::uint32_t seconds) {
    const MutexLock lock(activityMutex_);
    std::uint32_t expected = never;
    idleTimeoutSeconds_.compare_exchange_strong(expected, seconds);
    idleCountdown_ = idleTimeoutSeconds_;
}

void IdleClock::change(std::uint32_t seconds) {
    idleTimeoutSeconds_ = seconds;
    idleCountdownAlt_ = seconds;
    idleDisabled_ = seconds == 0;
}

void IdleClock::restart() {
    const MutexLock lock(activityMutex_);
    idleCountdown_ = idleTimeoutSeconds_;
}

bool IdleClock::tick() {
    const MutexLock lock(activityMutex_);
    return --idleCountdown_ == 0;
}

void IdleClock::startAlt(std::uint32_t seconds) {
    idleCountdownAlt_ = seconds;
    idleDisabled_ = seconds == 0;
}

bool IdleClock::tickAlt() {
    const MutexLock lock(activityMutex_);
    return !idleDisabled_ && --idleCountdownAlt_ == 0;
}

void* idleThread(void* sessionContext) {
    runClock(static_cast<SessionContext*>(sessionContext)->idle, &IdleClock::start, &IdleClock::tick);
}

void* idleThreadAlt(void* sessionContext) {
    runClock(static_cast<SessionContext*>(sessionContext)->idle, &IdleClock::startAlt, &IdleClock::tickAlt);
}
