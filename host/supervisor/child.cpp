#include "host/supervisor/child.h"

#include "host/base/readiness.h"
#include "host/loop/exec_words.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <string_view>
#include <sys/prctl.h>
#include <unistd.h>

namespace host {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr std::chrono::milliseconds shortestDelay = 50ms;
constexpr std::chrono::milliseconds longestDelay = 5s;

/// A program that has run for that long has ended for a new reason.
constexpr auto steadyTime = 10s;

constexpr int failedStart = 127;

std::vector<std::string> environmentWith(int ready) {
    const std::string prefix = std::string(readyDescriptorVariable) + "=";
    std::vector<std::string> environment = {prefix + std::to_string(ready)};
    for (char** variable = environ; *variable != nullptr; ++variable)
        if (!std::string_view(*variable).starts_with(prefix)) environment.emplace_back(*variable);
    return environment;
}

/// In the new process, where nothing but system calls is safe. A process group of its own keeps Ctrl-C at a terminal
/// for the supervisor alone, and the kernel ends the child when the supervisor is killed.
void becomeChild(pid_t supervisor, int output, int ready) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != supervisor) _exit(failedStart);
    signal(SIGPIPE, SIG_DFL);
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    dup2(nothing, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    fcntl(ready, F_SETFD, 0);
}

pid_t startProgram(std::vector<std::string> command, int output, int ready) {
    std::vector<std::string> environment = environmentWith(ready);
    const std::vector<char*> arguments = execWords(command), variables = execWords(environment);
    const pid_t supervisor = getpid();
    const pid_t pid = fork();
    if (pid != 0) return pid;
    becomeChild(supervisor, output, ready);
    execve(arguments[0], arguments.data(), variables.data());
    _exit(failedStart);
}

}  // namespace

Child::Child(EventLoop& loop, Plan plan)
    : loop_(loop), plan_(std::move(plan)), due_(loop, [this] { plan_.onDue(*this); }) {}

bool Child::start() {
    if (isRunning()) return true;
    std::array<int, 2> ends;
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return false;
    readiness_.reset(ends[0]);
    const UniqueFd ready(ends[1]);
    const pid_t pid = startProgram(plan_.command(ready.get()), plan_.output, ready.get());
    if (pid < 0) return false;
    pid_ = pid;
    started_ = steady_clock::now();
    line_.clear();
    readinessWatch_ = std::make_unique<ReadWatch>(loop_, readiness_.get(), [this] { readReadiness(); });
    return true;
}

void Child::signal(int number) const {
    if (isRunning()) kill(pid_, number);
}

void Child::ended() {
    pid_ = 0;
    isReady_ = false;
    readinessWatch_.reset();
    readiness_.reset();
}

void Child::startLater() {
    const bool wasSteady = steady_clock::now() - started_ > steadyTime;
    delay_ = wasSteady ? shortestDelay : std::clamp(2 * delay_, shortestDelay, longestDelay);
    due_.start(delay_);
}

void Child::readReadiness() {
    std::array<char, 256> bytes;
    const ssize_t count = read(readiness_.get(), bytes.data(), bytes.size());
    if (count < 0 && errno == EAGAIN) return;
    if (count > 0) line_.append(bytes.data(), static_cast<std::size_t>(count));
    const std::size_t end = line_.find('\n');
    if (count > 0 && end == line_.npos) return;
    readinessWatch_.reset();
    readiness_.reset();
    if (end == line_.npos) return;
    isReady_ = true;
    plan_.onReady(line_.substr(0, end));
}

}  // namespace host
