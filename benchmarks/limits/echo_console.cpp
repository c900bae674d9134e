/// The minimal console: waits for a byte, 30 ms at a time, reads and echoes it, and answers each line with a fixed one.
/// Given a file, it first makes a page of it durable, as a console must that stores a setting.

#include "benchmarks/limits/durable_page.h"

#include <cstdio>
#include <optional>
#include <sys/select.h>
#include <unistd.h>

namespace {

/// False on silence.
bool waitForByte() {
    fd_set input;
    FD_ZERO(&input);
    FD_SET(STDIN_FILENO, &input);
    timeval limit{0, 30'000};
    return select(STDIN_FILENO + 1, &input, nullptr, nullptr, &limit) > 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::optional<bench::DurablePage> page;
    if (argc > 1) page.emplace(argv[1]);
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    for (;;) {
        char byte = 0;
        if (!waitForByte()) continue;
        if (read(STDIN_FILENO, &byte, 1) != 1) return 0;
        std::fputc(byte, stderr);
        if (byte != '\r') continue;
        std::puts("\r");
        if (page) page->overwrite();
        std::puts("reply\r");
    }
}
