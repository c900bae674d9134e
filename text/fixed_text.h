/// A text in a buffer of fixed size, with a flag that says whether something did not fit.
#pragma once

#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>

/// Holds at most `Capacity - 1` bytes and a NUL. What does not fit is cut off and noted; nothing is ever allocated.
template <std::size_t Capacity>
class FixedText {
  public:
    FixedText() { bytes_[0] = '\0'; }

    /// Appends `length` bytes, as many of them as fit.
    void append(const char* text, std::size_t length) {
        const std::size_t room = Capacity - 1 - size_;
        if (length > room) {
            cut_ = true;
            length = room;
        }
        std::memcpy(bytes_.data() + size_, text, length);
        size_ += length;
        bytes_[size_] = '\0';
    }

    void append(const char* text) { append(text, std::strlen(text)); }

    void append(char c) { append(&c, 1); }

    /// Appends a printf format.
    [[gnu::format(printf, 2, 3)]] void appendFormat(const char* format, ...) {
        va_list arguments;
        va_start(arguments, format);
        const int length = std::vsnprintf(bytes_.data() + size_, Capacity - size_, format, arguments);
        va_end(arguments);
        const std::size_t wanted = length < 0 ? 0 : static_cast<std::size_t>(length);
        cut_ = cut_ || wanted >= Capacity - size_;
        size_ += wanted < Capacity - size_ ? wanted : Capacity - 1 - size_;
    }

    /// Keeps the first `size` bytes, not more than there are.
    void truncate(std::size_t size) {
        size_ = size;
        bytes_[size_] = '\0';
    }

    void clear() {
        size_ = 0;
        bytes_[0] = '\0';
        cut_ = false;
    }

    /// True when something was cut off since the start or the last clear().
    bool isCut() const { return cut_; }
    std::size_t size() const { return size_; }
    const char* c_str() const { return bytes_.data(); }
    char* data() { return bytes_.data(); }

  private:
    std::array<char, Capacity> bytes_;
    std::size_t size_ = 0;
    bool cut_ = false;
};
