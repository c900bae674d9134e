#pragma once

#include "text/owned_text.h"

/// A copy of `text` in which every occurrence of `from` stands as `to`, scanned from the left; what was put in is not
/// scanned again. An empty `from` occurs nowhere. Null when memory ran out.
OwnedText replaceAll(const char* text, const char* from, const char* to);
