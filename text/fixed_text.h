/// A text in a buffer of fixed size, with a flag that says whether something did not fit.
#pragma once

#include <cstddef>
#include <cstring>

/// Holds at most `capacity - 1` bytes and a NUL. What does not fit is cut off and noted; nothing is ever allocated.
class TextBuffer {
  public:
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

    /// Appends `length` bytes, as many of them as fit.
    void append(const char* text, std::size_t length);
    void append(const char* text) { append(text, std::strlen(text)); }
    void append(char c);

    /// Appends a decimal number, sooner than a printf format does.
    void appendNumber(int value);

    /// Appends a printf format.
    [[gnu::format(printf, 2, 3)]] void appendFormat(const char* format, ...);

    /// Keeps the first `size` bytes, not more than there are.
    void truncate(std::size_t size) {
        size_ = size;
        bytes_[size_] = '\0';
    }

    void clear() {
        truncate(0);
        cut_ = false;
    }

    /// True when something was cut off since the start or the last clear().
    bool isCut() const { return cut_; }
    std::size_t size() const { return size_; }
    const char* c_str() const { return bytes_; }
    char* data() { return bytes_; }

  protected:
    /// The bytes are the derived class's, which clears them once they live.
    TextBuffer(char* bytes, std::size_t capacity) : bytes_(bytes), capacity_(capacity) {}

    /// Takes what a text of the same capacity holds.
    void copy(const TextBuffer& other) {
        clear();
        append(other.bytes_, other.size_);
        cut_ = other.cut_;
    }

  private:
    char* const bytes_;
    const std::size_t capacity_;
    std::size_t size_ = 0;
    bool cut_ = false;
};

/// A text with its buffer. Texts of all sizes share the code above.
template <std::size_t Capacity>
class FixedText : public TextBuffer {
  public:
    FixedText() : TextBuffer(storage_, Capacity) { clear(); }
    FixedText(const FixedText& other) : FixedText() { copy(other); }
    FixedText& operator=(const FixedText& other) {
        if (this != &other) copy(other);
        return *this;
    }

  private:
    char storage_[Capacity];
};
