/// A text on the heap, which its holder frees.
#pragma once

#include <cstdlib>
#include <memory>

struct FreeText {
    void operator()(char* text) const { std::free(text); }
};

/// Empty (null) where nothing could be read.
using OwnedText = std::unique_ptr<char, FreeText>;

/// A copy of `text` in which every occurrence of `from` stands as `to`, scanned from the left; what was put in is not
/// scanned again. An empty `from` occurs nowhere. Null when memory ran out.
OwnedText replaceAll(const char* text, const char* from, const char* to);
