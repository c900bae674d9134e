#include "text/owned_text.h"

#include <algorithm>
#include <cstring>

namespace {

std::size_t countOccurrences(const char* text, const char* part, std::size_t partLength) {
    std::size_t count = 0;
    for (const char* at = std::strstr(text, part); at != nullptr; at = std::strstr(at + partLength, part)) ++count;
    return count;
}

}  // namespace

OwnedText replaceAll(const char* text, const char* from, const char* to) {
    const std::size_t fromLength = std::strlen(from);
    const std::size_t toLength = std::strlen(to);
    const std::size_t count = fromLength == 0 ? 0 : countOccurrences(text, from, fromLength);
    OwnedText result(static_cast<char*>(std::malloc(std::strlen(text) + count * toLength - count * fromLength + 1)));
    if (!result) return result;
    char* out = result.get();
    for (std::size_t left = count; left > 0; --left) {
        const char* at = std::strstr(text, from);
        out = std::copy(text, at, out);
        out = std::copy_n(to, toLength, out);
        text = at + fromLength;
    }
    std::copy_n(text, std::strlen(text) + 1, out);
    return result;
}
