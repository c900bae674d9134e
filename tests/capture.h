/// What a function writes to standard output or standard error.
#pragma once

#include <cstdio>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace fake_platform {

/// Sends a stream's descriptor into memory for as long as it lives.
class Captured {
  public:
    explicit Captured(std::FILE* stream) : stream_(stream), memory_(memfd_create("captured", 0)) {
        std::fflush(stream_);
        saved_ = dup(fileno(stream_));
        dup2(memory_, fileno(stream_));
    }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;
    ~Captured() {
        std::fflush(stream_);
        dup2(saved_, fileno(stream_));
        close(saved_);
        close(memory_);
    }

    /// All that was written so far.
    std::string text() const {
        std::fflush(stream_);
        std::string bytes(static_cast<std::size_t>(lseek(memory_, 0, SEEK_END)), '\0');
        bytes.resize(static_cast<std::size_t>(pread(memory_, bytes.data(), bytes.size(), 0)));
        return bytes;
    }

  private:
    std::FILE* stream_;
    int memory_;
    int saved_;
};

/// What `function` writes to standard output; to standard error.
template <typename Function>
std::string capture(Function&& function, std::FILE* stream = stdout) {
    const Captured captured(stream);
    function();
    return captured.text();
}

template <typename Function>
std::string captureErrors(Function&& function) {
    return capture(function, stderr);
}

}  // namespace fake_platform
