#include "console/line_turns.h"

#include <ctime>

namespace {

// Milliseconds.
constexpr std::uint32_t typingPause = 30;
constexpr std::uint32_t longestLine = 300;
constexpr std::uint32_t patienceForChange = 300;

/// Wraps around: only differences are meaningful. The coarse clock is cheap enough to be read for every byte.
std::uint32_t millisecondsNow() {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    // Multiplied by 2^32 / 10^6 instead of divided: small processors have no division.
    const std::uint64_t milliseconds = static_cast<std::uint64_t>(now.tv_nsec) * 4295 >> 32;
    return static_cast<std::uint32_t>(now.tv_sec) * 1000 + static_cast<std::uint32_t>(milliseconds);
}

}  // namespace

void LineTurns::beginLine() {
    const MutexLock lock(mutex_);
    lineWaits_ = true;
    while (isChangeDue() && changed_.wait(mutex_, patienceForChange)) continue;
    // No longer wait: a printer may itself be waiting for a daemon.
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
    while (const std::uint32_t milliseconds = timeLeftForLine()) changed_.wait(mutex_, static_cast<long>(milliseconds));
    changeWaits_ = false;
    changeIsShown_ = true;
}

void LineTurns::endChange() {
    const MutexLock lock(mutex_);
    changeIsNext_ = changeIsShown_ = false;
    if (lineWaits_) changed_.notify();
}

std::uint32_t LineTurns::timeLeftForLine() const {
    if (lineWaits_ && !changeIsNext_) return typingPause;  // the change is about to be shown
    if (!lineArrives_) return 0;
    const std::uint32_t now = millisecondsNow();
    const std::uint32_t age = now - lastByte_;
    return age < typingPause && now - lineStart_ < longestLine ? typingPause - age : 0;
}
