/// The time a session may still be idle, and the threads that end one for which it is over.
#pragma once

#include "console/mutex.h"

#include <atomic>
#include <cstdint>

/// Seconds left and seconds allowed. All arithmetic is unsigned and a countdown is decremented before it is tested, so
/// a time-out of 0 wraps and means never.
class IdleClock {
  public:
    /// Takes the configured time-out, unless a newer one is known already, and starts counting from it.
    void start(std::uint32_t seconds);

    /// A changed time-out: the running count is left alone, the next restart() takes it.
    void change(std::uint32_t seconds);

    /// A line has ended.
    void restart();

    /// One second has passed. True when none is left: the session is over.
    bool tick();

    /// The same for the alternative loop, which has its own count and rests while the time-out is 0.
    void startAlt(std::uint32_t seconds);
    bool tickAlt();

  private:
    static constexpr std::uint32_t never = 0xFFFFFFFF;

    Mutex activityMutex_;
    std::uint32_t idleCountdown_ GUARDED_BY(activityMutex_) = never;
    std::atomic<std::uint32_t> idleTimeoutSeconds_ = never;  ///< written without the mutex by the event listener
    std::atomic<std::uint32_t> idleCountdownAlt_ = never;
    std::atomic<bool> idleDisabled_ = false;
};

/// Thread body: kills the process when the clock of the SessionContext has run out. Never returns.
void* idleThread(void* sessionContext);

/// The same with the alternative loop.
void* idleThreadAlt(void* sessionContext);
