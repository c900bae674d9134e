/// Times what a callable does.
#pragma once

#include <chrono>

namespace bench {

/// The seconds that `action` takes.
template <typename Action>
double secondsOf(Action&& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace bench
