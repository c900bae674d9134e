#include "host/base/note.h"

#include "platform/logger.h"
#include "text/owned_text.h"

#include <cstdarg>
#include <cstdio>

namespace host {
namespace {

/// It stands in the line only: notes are written at every level.
constexpr int noteLevel = 6;

OwnedText formatted(const char* format, va_list arguments) {
    char* text = nullptr;
    return OwnedText(vasprintf(&text, format, arguments) < 0 ? nullptr : text);
}

}  // namespace

void note(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const OwnedText text = formatted(format, arguments);
    va_end(arguments);
    if (text) __printLog(noteLevel, "%s", text.get());
}

void report(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const OwnedText text = formatted(format, arguments);
    va_end(arguments);
    if (!text) return;
    std::fprintf(stderr, "device: %s\n", text.get());
    __printLog(LOG_LEVEL_ERROR, "%s", text.get());
}

}  // namespace host
