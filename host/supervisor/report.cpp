#include "host/supervisor/report.h"

#include "platform/logger.h"

#include <array>
#include <cstdarg>
#include <cstdio>

namespace host {

void report(const char* format, ...) {
    std::array<char, 1024> text;
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    std::fprintf(stderr, "device: %s\n", text.data());
    __printLog(LOG_LEVEL_ERROR, "%s", text.data());
}

}  // namespace host
