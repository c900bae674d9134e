/// The forms of the reference: a page of Markdown, a page of the manual.
#pragma once

#include "tools/command_reference/entry.h"

/// Each function writes to standard output.
struct Writer {
    const char* name;
    const char* opening;
    void (*listTopic)(const Topic& topic, const std::vector<Entry>& entries);  ///< in the overview
    void (*beginTopic)(const Topic& topic);
    void (*write)(const Entry& entry);
    const char* closing;
};

/// Null for an unknown name.
const Writer* findWriter(const char* name);
