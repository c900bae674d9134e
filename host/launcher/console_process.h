/// The console program of one connection, on a pseudo-terminal of its own.
#pragma once

#include "host/base/unique_fd.h"

#include <cstddef>
#include <optional>
#include <string>
#include <sys/types.h>

namespace host {

class ConsoleProcess {
  public:
    /// Starts the program below the device root, by its name, such as "/usr/bin/*cmdd9000port", for a client. None,
    /// with errno set, when it could not be started.
    static std::optional<ConsoleProcess> start(const std::string& programName, const std::string& clientAddress);

    pid_t pid() const { return pid_; }

    /// The launcher's end of the terminal, non-blocking; -1 after hangUp().
    int terminal() const { return terminal_.get(); }

    /// How many bytes of what was typed the program has not read yet.
    std::size_t unreadBytes() const;

    /// Closes the terminal, which sends the program SIGHUP.
    void hangUp() { terminal_.reset(); }

    void signal(int number) const;

  private:
    ConsoleProcess(UniqueFd terminal, pid_t pid) : terminal_(std::move(terminal)), pid_(pid) {}

    UniqueFd terminal_;
    pid_t pid_;
};

/// Whether the device root holds the programs of the four names and the stand-ins of the shell commands that a console
/// runs, so that neither a console nor a command from outside of it can be reached.
bool deviceRootIsComplete();

}  // namespace host
