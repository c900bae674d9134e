/// Operators and the programs they talk to.
#pragma once

#include "host/launcher/terminal.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace bench {

/// One end of a conversation. Every function throws std::runtime_error when the other end is gone.
class Talk {
  public:
    /// `end` does not block.
    explicit Talk(host::UniqueFd end) : end_(std::move(end)) {}

    void type(std::string_view bytes);

    /// Reads what is there. True when `text` has been shown, and then forgets all that has.
    bool hasShown(std::string_view text);

    /// Waits until `text` has been shown. False when nothing has come for so long.
    bool awaitFor(std::chrono::milliseconds patience, std::string_view text);

    /// The same with much patience, at the end of which it throws.
    void await(std::string_view text);

    void ask(std::string_view line, std::string_view reply);

    int descriptor() const { return end_.get(); }

  protected:
    void hangUp() { end_.reset(); }

  private:
    host::UniqueFd end_;
    std::string shown_;
};

/// Comes through the launcher that listens on 127.0.0.1.
Talk connectTo(int port);

/// A program on a pseudo-terminal of its own; its end is the program's.
class Session : public Talk {
  public:
    explicit Session(const host::ProgramStart& program);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    pid_t pid() const { return pid_; }

  private:
    pid_t pid_;
};

/// Many sessions at once.
class Crowd {
  public:
    Crowd();

    Session& add(const host::ProgramStart& program);

    /// Waits until every session has shown `text`.
    void await(std::string_view text);

    std::size_t size() const { return sessions_.size(); }
    Session& operator[](std::size_t index) { return *sessions_[index]; }
    auto begin() const { return sessions_.begin(); }
    auto end() const { return sessions_.end(); }

  private:
    host::UniqueFd watch_;
    std::vector<std::unique_ptr<Session>> sessions_;
};

}  // namespace bench
