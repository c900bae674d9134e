/// The terminal on descriptor 0. What fails here ends the process.
#pragma once

/// Reports the failed call on standard error and ends the process with status 1.
[[noreturn]] void exitWithError(const char* call);

/// Puts the terminal on descriptor 0 into raw mode for good. On failure the message is on standard error and the
/// process ends with status 1.
void makeTerminalRaw();
