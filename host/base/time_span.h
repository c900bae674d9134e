/// Spans of time as the system's calls take them, whose fields are 32 bits wide on some machines and 64 on others.
#pragma once

#include <algorithm>
#include <chrono>
#include <ctime>
#include <limits>
#include <string>
#include <sys/time.h>

namespace host {

/// The whole seconds of `span`, as many as the system can count.
inline std::time_t wholeSeconds(std::chrono::nanoseconds span) {
    constexpr std::int64_t most = std::numeric_limits<std::time_t>::max();
    return static_cast<std::time_t>(std::min(most, std::chrono::floor<std::chrono::seconds>(span).count()));
}

inline timeval toTimeval(std::chrono::nanoseconds span) {
    const auto rest = std::chrono::duration_cast<std::chrono::microseconds>(span % std::chrono::seconds(1));
    return {wholeSeconds(span), static_cast<suseconds_t>(rest.count())};
}

inline timespec toTimespec(std::chrono::nanoseconds span) {
    return {wholeSeconds(span), static_cast<decltype(timespec::tv_nsec)>((span % std::chrono::seconds(1)).count())};
}

/// The time since the epoch; nothing where the clock fails, as an old one of 32 bits does after the year 2038.
inline std::chrono::nanoseconds timeOfDay() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

/// A moment since the epoch, as strftime() writes it.
inline std::string utcText(const char* format, std::chrono::nanoseconds moment) {
    const std::time_t seconds = wholeSeconds(moment);
    tm utc;
    gmtime_r(&seconds, &utc);
    char text[32];
    return {text, std::strftime(text, sizeof text, format, &utc)};
}

}  // namespace host
