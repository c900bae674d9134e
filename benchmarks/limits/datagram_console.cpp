/// The minimal program that shows what others announce: it writes each datagram that comes to its socket to its
/// terminal.

#include "host/base/unix_address.h"

#include <array>
#include <cstdio>
#include <sys/socket.h>
#include <unistd.h>

int main(int /*argc*/, char** argv) {
    const host::UnixAddress address(argv[1]);
    const int descriptor = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (bind(descriptor, address.get(), address.size()) != 0) {
        std::perror(argv[1]);
        return 1;
    }
    std::puts("ready\r");
    std::fflush(stdout);
    for (;;) {
        std::array<char, 512> text;
        const ssize_t count = recv(descriptor, text.data(), text.size(), 0);
        if (count < 0 || write(STDOUT_FILENO, text.data(), static_cast<std::size_t>(count)) < 0) return 1;
    }
}
