#include "text/fixed_text.h"

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <iterator>

void TextBuffer::append(const char* text, std::size_t length) {
    const std::size_t room = capacity_ - 1 - size_;
    if (length > room) {
        cut_ = true;
        length = room;
    }
    std::memcpy(bytes_ + size_, text, length);
    truncate(size_ + length);
}

/// Each typed byte comes this way.
void TextBuffer::append(char c) {
    if (size_ + 1 == capacity_) {
        cut_ = true;
        return;
    }
    bytes_[size_] = c;
    truncate(size_ + 1);
}

void TextBuffer::appendNumber(int value) {
    char digits[sizeof "-2147483648"];
    char* first = std::end(digits);
    unsigned rest = value < 0 ? 0U - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    do {
        // A tenth: small processors have no division.
        const auto tenth = static_cast<unsigned>(rest * std::uint64_t{0xCCCCCCCD} >> 35);
        *--first = static_cast<char>('0' + (rest - 10 * tenth));
        rest = tenth;
    } while (rest != 0);
    if (value < 0) *--first = '-';
    append(first, static_cast<std::size_t>(std::end(digits) - first));
}

void TextBuffer::appendFormat(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(bytes_ + size_, capacity_ - size_, format, arguments);
    va_end(arguments);
    const std::size_t wanted = length < 0 ? 0 : static_cast<std::size_t>(length);
    cut_ = cut_ || wanted >= capacity_ - size_;
    size_ += wanted < capacity_ - size_ ? wanted : capacity_ - 1 - size_;
}
