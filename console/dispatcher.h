/// Hands a finished line to its command.
#pragma once

/// Runs the action of the first row that `line` begins with, leading spaces aside; answers the failure line when no row
/// fits. Runs on the main thread; the reply has been written when it returns.
void dispatchCommand(const char* line);
