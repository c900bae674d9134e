/// Many sessions at once.
#pragma once

#include "benchmarks/pty_session.h"

#include <memory>
#include <string_view>
#include <vector>

namespace bench {

class Crowd {
  public:
    Crowd();

    /// Starts the program in one more session.
    PtySession& add(const Program& program);

    /// Waits until every session has shown `text`.
    void await(std::string_view text);

    std::size_t size() const { return sessions_.size(); }
    PtySession& operator[](std::size_t index) { return *sessions_[index]; }

  private:
    host::UniqueFd watch_;
    std::vector<std::unique_ptr<PtySession>> sessions_;
};

}  // namespace bench
