/// Whose turn it is on the connection: a line that is arriving is finished before a change is shown, and a change
/// before the next line begins. Neither waits long for the other.
#pragma once

#include "console/mutex.h"

#include <atomic>
#include <cstdint>

class LineTurns {
  public:
    /// The line reader: the first byte of a line is about to be echoed, a further one has come, and the line with its
    /// echo is finished. A change that waited meanwhile comes before the next line.
    void beginLine();
    void noteByte();
    void endLine();

    /// The event listener: something is about to be shown, and has been shown. Waits for a line whose last byte came
    /// within the last 30 ms, as long as it has been arriving for less than 300 ms: whoever pauses sees changes at
    /// once.
    void beginChange();
    void endChange();

  private:
    std::uint32_t timeLeftForLine() const REQUIRES(mutex_);
    bool isChangeDue() const REQUIRES(mutex_) { return changeIsNext_ || changeIsShown_; }

    Mutex mutex_;
    Condition changed_;
    std::atomic<std::uint32_t> lastByte_ = 0;  ///< when, in milliseconds; so is lineStart_
    std::uint32_t lineStart_ GUARDED_BY(mutex_) = 0;
    bool lineArrives_ GUARDED_BY(mutex_) = false;
    bool lineWaits_ GUARDED_BY(mutex_) = false;
    bool changeWaits_ GUARDED_BY(mutex_) = false;
    bool changeIsNext_ GUARDED_BY(mutex_) = false;
    bool changeIsShown_ GUARDED_BY(mutex_) = false;
};

/// The event listener's turn, from the first thing that it shows to the end of the scope.
class ChangeTurn {
  public:
    explicit ChangeTurn(LineTurns& turns) : turns_(turns) {}
    ~ChangeTurn() {
        if (taken_) turns_.endChange();
    }
    ChangeTurn(const ChangeTurn&) = delete;
    ChangeTurn& operator=(const ChangeTurn&) = delete;

    void take() {
        if (!taken_) turns_.beginChange();
        taken_ = true;
    }

  private:
    LineTurns& turns_;
    bool taken_ = false;
};
