/// What must hold whatever the input was.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace fuzz {

/// Ends the run, which makes the input a finding, unless `holds`. `seen` is shown beside the broken promise.
inline void require(bool holds, const char* promise, const std::string& seen = "") {
    if (holds) return;
    dprintf(STDERR_FILENO, "broken promise: %s\n%s\n", promise, seen.c_str());
    std::abort();
}

}  // namespace fuzz
