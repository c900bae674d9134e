#include "console/terminal.h"

#include <cstdio>
#include <cstdlib>
#include <termios.h>
#include <unistd.h>

namespace {

/// What cfmakeraw() does, written out because a small libc may lack it; VMIN and VTIME stay as they are.
void makeRaw(termios& attributes) {
    attributes.c_iflag &= ~static_cast<tcflag_t>(IGNBRK | BRKINT | PARMRK | ISTRIP | INLCR | IGNCR | ICRNL | IXON);
    attributes.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    attributes.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL | ICANON | ISIG | IEXTEN);
    attributes.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB);
    attributes.c_cflag |= CS8;
}

}  // namespace

void exitWithError(const char* call) {
    std::perror(call);
    std::exit(1);
}

void makeTerminalRaw() {
    termios attributes;
    if (tcgetattr(STDIN_FILENO, &attributes) != 0) exitWithError("tcgetattr");
    makeRaw(attributes);
    if (tcsetattr(STDIN_FILENO, TCSANOW, &attributes) != 0) exitWithError("tcsetattr");
}
