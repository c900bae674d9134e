/// Stands in for the console in the launcher's tests. It greets with '>', sends back every byte as it got it, and a
/// line that begins with '!' makes it do what a test needs a console to do.
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <unistd.h>

namespace {

void print(const std::string& text) { std::cout << text << std::flush; }

void runCommand(const std::string& line) {
    if (line == "!environment")
        for (char** variable = environ; *variable != nullptr; ++variable) print(std::string(*variable) + "\n");
    if (line == "!pid") print(std::to_string(getpid()));
    if (line == "!last words") print(std::string(30'000, 'w') + "end"), std::exit(0);
    if (line == "!stubborn")
        for (const int number : {SIGHUP, SIGTERM}) std::signal(number, SIG_IGN);
    for (; line == "!ticks"; usleep(100'000)) print("tick\r\n");
    while (line == "!deaf") pause();
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
        if (line.starts_with('!')) runCommand(line);
        line.clear();
    }
}
