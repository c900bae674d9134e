#include "system/uptime.h"

#include <cmath>

FixedText<64> formatUptime(double seconds) {
    constexpr double longest = 1e15;
    // The comparison is false for what is not a number, too.
    const auto t = static_cast<long long>(std::fabs(seconds) < longest ? seconds : 0);
    FixedText<64> text;
    text.appendFormat("%02lld %02lld:%02lld:%02lld", t / 86400, t % 86400 / 3600, t % 3600 / 60, t % 60);
    return text;
}
