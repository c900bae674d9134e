#include "console/idle_clock.h"

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
