/// A pseudo-terminal and the program on its other end.
#pragma once

#include "host/base/start_program.h"
#include "host/base/unique_fd.h"

namespace host {

/// This end of a new terminal, non-blocking; none with errno set. It is raw from the start: what is typed before the
/// program runs must be neither echoed nor translated.
UniqueFd openTerminal();

/// Starts a program whose standard input, output and error are the other end, its controlling terminal. The process,
/// or -1 with errno set.
pid_t startOnTerminal(int terminal, ProgramStart start);

}  // namespace host
