/// The least that a console needs to show what others announce: each datagram that comes to its socket is written to
/// its terminal.

#include <array>
#include <cstdio>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

int openSocket(const char* path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path, sizeof address.sun_path - 1);
    const int descriptor = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    return bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ? descriptor : -1;
}

}  // namespace

int main(int /*argc*/, char** argv) {
    const int descriptor = openSocket(argv[1]);
    if (descriptor < 0) {
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
