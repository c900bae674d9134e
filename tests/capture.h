/// What a function writes to standard output or standard error.
#pragma once

#include <cstdio>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace fake_platform {

/// What `function` writes to a stream, whose descriptor leads into memory meanwhile.
template <typename Function>
std::string capture(Function&& function, std::FILE* stream = stdout) {
    std::fflush(stream);
    const int saved = dup(fileno(stream)), memory = memfd_create("captured", 0);
    dup2(memory, fileno(stream));
    function();
    std::fflush(stream);
    dup2(saved, fileno(stream));
    std::string bytes(static_cast<std::size_t>(lseek(memory, 0, SEEK_END)), '\0');
    bytes.resize(static_cast<std::size_t>(pread(memory, bytes.data(), bytes.size(), 0)));
    close(saved);
    close(memory);
    return bytes;
}

}  // namespace fake_platform
