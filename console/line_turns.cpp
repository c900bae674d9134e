#include "console/line_turns.h"

#include <ctime>

namespace {

// Milliseconds.
constexpr std::uint32_t typingPause = 30;
constexpr std::uint32_t longestLine = 300;
constexpr std::uint32_t patienceForChange = 300;

/// Wraps: only differences mean something. The coarse clock is exact enough and cheap enough for every byte.
std::uint32_t millisecondsNow() {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<std::uint32_t>(now.tv_sec) * 1000 + static_cast<std::uint32_t>(now.tv_nsec / 1'000'000);
}

}  // namespace

void LineTurns::beginLine() {
    const MutexLock lock(mutex_);
    lineWaits_ = true;
    while (isChangeDue() && changed_.wait(mutex_, patienceForChange)) continue;
    // A change that takes longer, because its printer waits for a daemon, is waited for no more.
    changeIsNext_ = changeIsShown_ = lineWaits_ = false;
    lineArrives_ = true;
    lineStart_ = millisecondsNow();
    lastByte_ = lineStart_;
}

void LineTurns::noteByte() { lastByte_.store(millisecondsNow(), std::memory_order_relaxed); }

void LineTurns::endLine() {
    const MutexLock lock(mutex_);
    lineArrives_ = false;
    changeIsNext_ = changeWaits_;
    if (changeWaits_) changed_.notify();
}

void LineTurns::beginChange() {
    const MutexLock lock(mutex_);
    changeWaits_ = true;
    while (const std::uint32_t milliseconds = timeLeftForLine()) changed_.wait(mutex_, milliseconds);
    changeWaits_ = false;
    changeIsShown_ = true;
}

void LineTurns::endChange() {
    const MutexLock lock(mutex_);
    changeIsNext_ = changeIsShown_ = false;
    if (lineWaits_) changed_.notify();
}

std::uint32_t LineTurns::timeLeftForLine() const {
    if (lineWaits_ && !changeIsNext_) return typingPause;  // it is about to begin
    if (!lineArrives_) return 0;
    const std::uint32_t now = millisecondsNow();
    const std::uint32_t age = now - lastByte_;
    return age < typingPause && now - lineStart_ < longestLine ? typingPause - age : 0;
}
