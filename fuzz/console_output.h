/// What the console under test writes, kept in memory: the terminal belongs to the fuzzer.
#pragma once

#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace fuzz {

/// Takes the place of a standard stream, for good.
class ConsoleOutput {
  public:
    explicit ConsoleOutput(std::FILE*& stream) {
        const auto keep = [](void* text, const char* bytes, std::size_t count) {
            static_cast<std::string*>(text)->append(bytes, count);
            return static_cast<ssize_t>(count);
        };
        stream_ = fopencookie(&text_, "w", {nullptr, keep, nullptr, nullptr});
        stream = stream_;
    }
    ConsoleOutput(const ConsoleOutput&) = delete;
    ConsoleOutput& operator=(const ConsoleOutput&) = delete;

    /// What was written since the last take().
    std::string take() {
        std::fflush(stream_);
        return std::exchange(text_, {});
    }

  private:
    std::string text_;
    std::FILE* stream_;
};

/// Both streams of a console. What goes past the streams, straight to the descriptor, is dropped.
struct ConsoleOutputs {
    ConsoleOutput replies{stdout};
    ConsoleOutput complaints{stderr};

    ConsoleOutputs() { dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO); }
};

}  // namespace fuzz
