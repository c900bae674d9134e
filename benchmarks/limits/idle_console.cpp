/// The least that an idle console can do: look for input every 30 milliseconds.

#include <cstdio>
#include <sys/select.h>
#include <unistd.h>

int main() {
    std::puts("ready\r");
    std::fflush(stdout);
    for (;;) {
        fd_set input;
        FD_ZERO(&input);
        FD_SET(STDIN_FILENO, &input);
        timeval limit{0, 30'000};
        select(STDIN_FILENO + 1, &input, nullptr, nullptr, &limit);
    }
}
