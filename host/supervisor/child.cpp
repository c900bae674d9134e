#include "host/supervisor/child.h"

#include "host/base/readiness.h"
#include "host/base/start_program.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace host {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr std::chrono::milliseconds shortestDelay = 50ms;
constexpr std::chrono::milliseconds longestDelay = 5s;

/// A program that has run for that long has ended for a new reason.
constexpr auto steadyTime = 10s;

/// The kernel ends the child when the supervisor is killed; if that comes too early, the child ends because nobody
/// takes its readiness. A process group of its own keeps Ctrl-C at a terminal for the supervisor alone.
pid_t startChild(Child::Command command, int output, int ready) {
    command.insert(command.begin(), {"/usr/bin/setpriv", "--pdeathsig", "KILL"});
    return startProgram({.path = command.front(),
                         .arguments = command,
                         .descriptors = {{output, STDOUT_FILENO}, {output, STDERR_FILENO}, {ready, readyDescriptor}},
                         .flags = POSIX_SPAWN_SETPGROUP});
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
    const pid_t pid = startChild(plan_.command(), plan_.output, ready.get());
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
    plan_.onReady(*this, line_.substr(0, end));
}

}  // namespace host
