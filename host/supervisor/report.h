/// What the device tells whoever runs it.
#pragma once

namespace host {

/// Writes a line to standard error and to the run's log.
[[gnu::format(printf, 1, 2)]] void report(const char* format, ...);

}  // namespace host
