#include "platform/logger.h"

#include "host/base/atomic_file.h"
#include "host/base/device_root.h"
#include "host/base/time_span.h"
#include "host/base/visible_text.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

/// The text of a line is cut to this many bytes, counted before control bytes are escaped.
constexpr std::size_t longestText = 1024;

/// Some texts bring a line end of their own.
std::string_view withoutLineEnd(std::string_view text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
    return text;
}

/// "2026-11-21T03:31:19.123Z *cmdd[1234] 5 "
std::string stamp(int level) {
    const std::chrono::nanoseconds now = host::timeOfDay();
    const auto milliseconds = static_cast<int>(now / 1ms % 1000);
    std::array<char, 128> text;
    std::snprintf(text.data(), text.size(), "%s.%03dZ %s[%d] %d ", host::utcText("%FT%T", now).c_str(), milliseconds,
                  program_invocation_short_name, getpid(), level);
    return text.data();
}

}  // namespace

void __printLog(int level, const char* format, ...) {
    const int error = errno;
    std::array<char, longestText + 1> text;
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    std::string line = stamp(level);
    if (length > 0) line += host::visibleText(withoutLineEnd(text.data()));
    host::appendLine(host::inRoot("log/device.log"), line);
    errno = error;
}
