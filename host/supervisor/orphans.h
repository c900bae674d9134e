/// Processes that lost their parent and were handed to this one.
#pragma once

namespace host {

/// Makes this process the parent of every descendant that outlives its own.
void adoptOrphans();

/// Kills every child process that is left and waits for its end.
void endOrphans();

}  // namespace host
