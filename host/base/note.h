#pragma once

namespace host {

/// Writes a line to the run's log that is there in every run and tells of no error.
[[gnu::format(printf, 1, 2)]] void note(const char* format, ...);

}  // namespace host
