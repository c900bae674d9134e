/// The program that a session's start and memory are set against: an interactive shell.
#pragma once

#include "benchmarks/pty_session.h"

namespace bench {

inline Program shell() { return {"/bin/bash", {"bash", "--norc"}, {"PATH=/usr/bin:/bin", "TERM=dumb"}}; }

/// The reply does not stand in the typed line, which the shell echoes.
inline void askShell(PtySession& session) { session.ask("echo $((6 * 7))\r", "42"); }

}  // namespace bench
