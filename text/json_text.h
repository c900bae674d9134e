/// A JSON document that is put together in a work text.
#pragma once

#include "text/quoting.h"

/// Holds what fills a work text of `Capacity` bytes with its NUL before anything is escaped; for the escapes there is
/// room beyond that.
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
