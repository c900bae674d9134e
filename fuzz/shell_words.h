/// What a shell makes of a line.
#pragma once

#include <cstring>
#include <optional>
#include <string>
#include <vector>

namespace fuzz {

/// Reads one plain command: words of plain, single-quoted and backslash-escaped bytes.
class ShellWords {
  public:
    /// The command's words. Nothing when the line is anything else: when a byte that means something to a shell stands
    /// outside of quotes.
    static std::optional<std::vector<std::string>> of(const std::string& line) {
        ShellWords words;
        for (const char byte : line + " ") {
            if (!words.take(byte)) return std::nullopt;
        }
        if (words.state_ != State::between) return std::nullopt;
        return words.words_;
    }

  private:
    enum class State { between, plain, quoted, escaped };

    bool take(char byte) {
        switch (state_) {
            case State::quoted:
                if (byte == '\'') {
                    state_ = State::plain;
                } else {
                    add(byte);
                }
                return true;
            case State::escaped:
                add(byte);
                state_ = State::plain;
                return true;
            default:
                return takeBare(byte);
        }
    }

    bool takeBare(char byte) {
        if (std::strchr("\"`$;&|<>()[]{}#~!?\n\r\t", byte) != nullptr) return false;
        if (byte == ' ') {
            state_ = State::between;
            return true;
        }
        if (state_ == State::between) words_.emplace_back();
        state_ = byte == '\'' ? State::quoted : byte == '\\' ? State::escaped : State::plain;
        if (state_ == State::plain) add(byte);
        return true;
    }

    void add(char byte) { words_.back() += byte; }

    State state_ = State::between;
    std::vector<std::string> words_;
};

}  // namespace fuzz
