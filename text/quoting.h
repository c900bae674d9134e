/// Escaping for JSON strings and shell arguments.
#pragma once

#include "text/fixed_text.h"

/// Appends `text` as the inside of a JSON string: quotes, backslashes and control bytes as escapes, all else as it is.
void appendJsonEscaped(TextBuffer& out, const char* text);

/// A JSON document in a work text: holds what fills a work text of `Capacity` bytes with its NUL before anything is
/// escaped; for the escapes there is room beyond that.
template <std::size_t Capacity>
class JsonText : public FixedText<6 * Capacity> {
  public:
    /// Appends `text` as the inside of a JSON string.
    void appendEscaped(const char* text) {
        const std::size_t before = this->size();
        appendJsonEscaped(*this, text);
        escapes_ += this->size() - before - std::strlen(text);
    }

    /// The size before escaping. Means nothing for a text that is cut.
    std::size_t plainSize() const { return this->size() - escapes_; }

    bool isCut() const { return FixedText<6 * Capacity>::isCut() || plainSize() >= Capacity; }

  private:
    std::size_t escapes_ = 0;
};

/// Appends `text` as one argument of a shell line: plain words as they are, anything else in single quotes.
void appendShellArgument(TextBuffer& out, const char* text);
