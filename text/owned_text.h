/// A text that a store or factory data allocated and the receiver frees.
#pragma once

#include <cstdlib>
#include <memory>

struct FreeText {
    void operator()(char* text) const { std::free(text); }
};

/// Empty (null) where nothing could be read.
using OwnedText = std::unique_ptr<char, FreeText>;
