#include "benchmarks/pty_session.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace bench {
namespace {

constexpr std::chrono::seconds longestPatience{10};

[[noreturn]] void fail(const std::string& what, int error = errno) {
    throw std::runtime_error(what + ": " + std::strerror(error));
}

/// Raw from the start: what is typed before the program runs must not be echoed by the terminal.
host::UniqueFd openTerminal() {
    host::UniqueFd terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
    if (!terminal || grantpt(terminal.get()) != 0 || unlockpt(terminal.get()) != 0) fail("pseudo-terminal");
    termios attributes;
    tcgetattr(terminal.get(), &attributes);
    cfmakeraw(&attributes);
    tcsetattr(terminal.get(), TCSANOW, &attributes);
    return terminal;
}

std::vector<char*> pointersTo(std::vector<std::string> const& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

/// A new session leader opens the terminal first, which makes it the controlling one.
pid_t spawn(const Program& program, const char* terminalName) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, terminalName, O_RDWR, 0);
    posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, STDERR_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    pid_t pid = -1;
    const int error = posix_spawn(&pid, program.path.c_str(), &actions, &attributes,
                                  pointersTo(program.arguments).data(), pointersTo(program.environment).data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) fail(program.path, error);
    return pid;
}

/// False when there is none for so long.
bool awaitInput(int terminal, std::chrono::milliseconds patience) {
    pollfd input{terminal, POLLIN, 0};
    return poll(&input, 1, static_cast<int>(patience.count())) != 0;
}

}  // namespace

PtySession::PtySession(const Program& program) : terminal_(openTerminal()) {
    std::array<char, 64> name;
    if (ptsname_r(terminal_.get(), name.data(), name.size()) != 0) fail("ptsname_r");
    pid_ = spawn(program, name.data());
}

PtySession::~PtySession() {
    terminal_.reset();
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
}

void PtySession::type(std::string_view bytes) {
    if (write(terminal_.get(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) fail("typing");
}

void PtySession::await(std::string_view text) {
    if (!awaitFor(longestPatience, text)) fail("no \"" + std::string(text) + "\" after \"" + shown_ + "\"", ETIMEDOUT);
}

bool PtySession::awaitFor(std::chrono::milliseconds patience, std::string_view text) {
    while (!hasShown(text)) {
        if (!awaitInput(terminal_.get(), patience)) return false;
    }
    return true;
}

void PtySession::ask(std::string_view line, std::string_view reply) {
    type(line);
    await(reply);
}

bool PtySession::hasShown(std::string_view text) {
    std::array<char, 4096> bytes;
    const ssize_t count = read(terminal_.get(), bytes.data(), bytes.size());
    if (count < 0 && errno != EAGAIN) fail("reading what was shown");
    if (count > 0) shown_.append(bytes.data(), static_cast<std::size_t>(count));
    const bool found = shown_.find(text) != std::string::npos;
    if (found) shown_.clear();
    return found;
}

}  // namespace bench
