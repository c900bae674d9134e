/// A line as an operator types it.
#pragma once

#include "console/dispatcher.h"
#include "tests/capture.h"

namespace platform_double {

/// What the console answers to `line`; to its standard error.
inline std::string typed(const std::string& line) {
    return capture([&line] { dispatchCommand(line.c_str()); });
}

inline std::string complaintsAbout(const std::string& line) {
    return captureErrors([&line] { typed(line); });
}

}  // namespace platform_double
