/// A moment by which something must be done.
#pragma once

#include <algorithm>
#include <chrono>

namespace host {

class Deadline {
  public:
    explicit Deadline(std::chrono::milliseconds limit) : end_(Clock::now() + limit) {}

    /// The time left, never less than nothing.
    std::chrono::microseconds left() const {
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end_ - Clock::now());
        return std::max(left, std::chrono::microseconds::zero());
    }

    bool isOver() const { return Clock::now() >= end_; }

  private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point end_;
};

}  // namespace host
