#include "text/fixed_text.h"

#include <cstdarg>
#include <cstdio>

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
    cut_ = cut_ || size_ + 1 == capacity_;
    if (size_ + 1 == capacity_) return;
    bytes_[size_] = c;
    truncate(size_ + 1);
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
