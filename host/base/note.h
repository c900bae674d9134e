/// Lines for those who run the device.
#pragma once

namespace host {

/// Writes a line to the run's log at every log level; not an error.
[[gnu::format(printf, 1, 2)]] void note(const char* format, ...);

/// Writes a line to standard error and, as an error, to the run's log.
[[gnu::format(printf, 1, 2)]] void report(const char* format, ...);

}  // namespace host
