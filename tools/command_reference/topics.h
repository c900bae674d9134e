/// What the command table does not say of itself: under which headings its rows stand, and what is typed to show one
/// whose family has no obvious value.
#pragma once

#include <span>

struct Topic {
    const char* title;
    const char* firstRow;  ///< the topic goes on until the next one's first row
};

struct Example {
    const char* row;
    const char* line;  ///< what is typed
};

std::span<const Topic> topics();

/// The line that shows a row; null where the row's family has one.
const char* exampleFor(const char* row);
