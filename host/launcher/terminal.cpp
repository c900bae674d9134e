#include "host/launcher/terminal.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <termios.h>
#include <unistd.h>

namespace host {

UniqueFd openTerminal() {
    UniqueFd terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    termios attributes;
    const bool isOpen = terminal && grantpt(terminal.get()) == 0 && unlockpt(terminal.get()) == 0 &&
                        tcgetattr(terminal.get(), &attributes) == 0;
    if (!isOpen) return {};
    cfmakeraw(&attributes);
    return tcsetattr(terminal.get(), TCSANOW, &attributes) == 0 ? std::move(terminal) : UniqueFd();
}

pid_t startOnTerminal(int terminal, ProgramStart start) {
    std::array<char, 64> name;
    if (ptsname_r(terminal, name.data(), name.size()) != 0) return -1;
    start.input = name.data();
    start.descriptors = {{STDIN_FILENO, STDOUT_FILENO}, {STDIN_FILENO, STDERR_FILENO}};
    start.flags = POSIX_SPAWN_SETSID;
    return startProgram(std::move(start));
}

}  // namespace host
