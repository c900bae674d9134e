/// A program on a pseudo-terminal of its own, and the operator in front of it.
#pragma once

#include "benchmarks/program.h"
#include "host/loop/unique_fd.h"

#include <chrono>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace bench {

class PtySession {
  public:
    /// Starts the program. Throws std::runtime_error when it cannot be started.
    explicit PtySession(const Program& program);

    /// Hangs up, and ends the program at once.
    ~PtySession();

    PtySession(const PtySession&) = delete;
    PtySession& operator=(const PtySession&) = delete;

    void type(std::string_view bytes);

    /// Waits until the program has shown `text`, and forgets all that it has shown. Throws std::runtime_error when
    /// nothing comes for ten seconds.
    void await(std::string_view text);

    /// The same with a patience of its own. False when nothing has come for so long.
    bool awaitFor(std::chrono::milliseconds patience, std::string_view text);

    /// Types a line and waits for the reply.
    void ask(std::string_view line, std::string_view reply);

    /// Reads what is there. True when `text` has been shown, and then forgets all that has.
    bool hasShown(std::string_view text);

    int terminal() const { return terminal_.get(); }
    pid_t pid() const { return pid_; }

  private:
    host::UniqueFd terminal_;
    pid_t pid_ = -1;
    std::string shown_;
};

}  // namespace bench
