/// Stands in for the console in the launcher's tests. It greets with '>', sends back every byte as it got it, and a
/// line that begins with '!' makes it do what a test needs a console to do.
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

void print(const std::string& text) {
    std::size_t sent = 0;
    while (sent < text.size()) {
        const ssize_t count = write(STDOUT_FILENO, text.data() + sent, text.size() - sent);
        if (count < 0) std::exit(1);
        sent += static_cast<std::size_t>(count);
    }
}

void printEnvironment() {
    for (char** variable = environ; *variable != nullptr; ++variable) print(std::string(*variable) + "\n");
}

void ignoreEnding() {
    std::signal(SIGHUP, SIG_IGN);
    std::signal(SIGTERM, SIG_IGN);
}

void stopReading() {
    while (true) pause();
}

void tick() {
    while (true) {
        print("tick\r\n");
        usleep(100'000);
    }
}

void obey(const std::string& line) {
    if (line == "!environment") printEnvironment();
    if (line == "!pid") print(std::to_string(getpid()));
    if (line == "!last words") print(std::string(30'000, 'w') + "end"), std::exit(0);
    if (line == "!stubborn") ignoreEnding();
    if (line == "!ticks") tick();
    if (line == "!deaf") stopReading();
    if (line == "!slow") usleep(1'000'000);
    if (line == "!count") std::ofstream("count", std::ios::app) << '.' << std::flush;
    print("!done\n");
}

}  // namespace

int main() {
    print(">");
    std::string line;
    for (char byte; read(STDIN_FILENO, &byte, 1) == 1;) {
        print({byte});
        if (byte != '\r') {
            line += byte;
            continue;
        }
        if (line.starts_with('!')) obey(line);
        line.clear();
    }
}
