#pragma once

/// Puts the terminal on descriptor 0 into raw mode for good. On failure the message is on standard error and the
/// process ends with status 1.
void makeTerminalRaw();
