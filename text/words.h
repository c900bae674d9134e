/// A text split at its separators.
#pragma once

#include "text/owned_text.h"

#include <array>
#include <cstddef>
#include <cstring>

/// The words of a text, of which the first `Kept` can be looked at. A run of separators counts as one.
template <std::size_t Kept>
class Words {
  public:
    Words(const char* text, const char* separators) : copy_(strdup(text)) {
        if (!copy_) return;
        char* rest = nullptr;
        for (const char* word = strtok_r(copy_.get(), separators, &rest); word != nullptr;
             word = strtok_r(nullptr, separators, &rest)) {
            if (count_ < Kept) words_[count_] = word;
            ++count_;
        }
    }

    /// All words, those that are not kept as well; 0 when memory ran out.
    std::size_t count() const { return count_; }

    /// A kept word; null where the text has fewer.
    const char* operator[](std::size_t index) const { return words_[index]; }

  private:
    OwnedText copy_;
    std::array<const char*, Kept> words_{};
    std::size_t count_ = 0;
};
