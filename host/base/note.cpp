#include "host/base/note.h"

#include "platform/logger.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace host {
namespace {

/// Between those of the console, whose own lines depend on what the device lets through.
constexpr int noteLevel = 6;

}  // namespace

void note(const char* format, ...) {
    char* text = nullptr;
    va_list arguments;
    va_start(arguments, format);
    const int length = vasprintf(&text, format, arguments);
    va_end(arguments);
    if (length < 0) return;
    __printLog(noteLevel, "%s", text);
    std::free(text);
}

}  // namespace host
