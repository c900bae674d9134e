#include "host/supervisor/supervisor.h"

#include "host/base/atomic_file.h"
#include "host/base/device_root.h"
#include "host/base/note.h"
#include "host/base/readiness.h"
#include "host/base/start_port.h"
#include "host/bus/bus_configuration.h"
#include "host/bus/bus_names.h"
#include "host/daemons/daemons.h"
#include "host/store/store.h"
#include "host/supervisor/root_layout.h"
#include "host/supervisor/stores.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <sched.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <utility>

namespace host {
namespace {

using namespace std::chrono_literals;
using Command = Child::Command;

/// None of the children is ended while one of a higher rank still runs.
enum { noRank, busRank, daemonRank, launcherRank };

constexpr char busName[] = "dbus-daemon", launcherName[] = "telnet_launcher", panelName[] = "panel";

constexpr auto readyLimit = 30s;
constexpr auto checkpointTime = 5s;

/// From SIGTERM to SIGKILL; the launcher ends stubborn consoles in less.
constexpr auto endLimit = 3s;

/// Runs with the device root as the working folder, listens on busPath() and lets in its own user only.
Command busCommand() {
    const std::string path = inRoot("bus.conf");
    const bool isWritten = readFile(path) == busConfiguration || replaceFile(path, busConfiguration);
    if (!isWritten) report("the bus's configuration cannot be written: %m");
    return {"/usr/bin/dbus-daemon", "--nofork", "--nopidfile", "--config-file=" + path,
            "--print-address=" + std::to_string(readyDescriptor)};
}

/// The bus's own messages, for diagnosis.
UniqueFd openBusOutput() {
    return UniqueFd(open(inRoot("log/dbus-daemon").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600));
}

std::string describeEnd(int status) {
    if (WIFSIGNALED(status)) return std::string("signal ").append(std::to_string(WTERMSIG(status)));
    return std::string("status ").append(std::to_string(WEXITSTATUS(status)));
}

/// The orphans of a killed child have become children of this process.
void endOrphans() {
    do {
        std::ifstream children("/proc/thread-self/children");
        if (!children) return report("what is left of the consoles cannot be found: %m");
        for (pid_t child = 0; children >> child;) kill(child, SIGKILL);
    } while (waitpid(-1, nullptr, 0) > 0);
}

}  // namespace

Supervisor::Supervisor(EventLoop& loop, const Options& options)
    : loop_(loop),
      options_(options),
      busOutput_(openBusOutput()),
      childWatch_(loop, SIGCHLD, [this] { reap(); }),
      deadline_(loop, [this] { onDeadline(); }),
      checkpoint_(loop, [this] { checkpoint(); }) {
    checkpoint();
    add(busName, busRank, busCommand, busOutput_.get());
    for (const DaemonKind& kind : daemonKinds)
        add(kind.name.data(), daemonRank, [kind] { return Command{programPath("device_daemon"), kind.name.data()}; });
    add(launcherName, launcherRank, [this] { return launcherCommand(); });
    // A client of the launcher, with which it ends.
    if (options.panelPort != 0) add(panelName, launcherRank, [this] { return panelCommand(); });
}

void Supervisor::add(const char* name, int rank, std::function<Command()> command, int output) {
    const auto onChildReady = [this](const Child& child, const std::string& line) { onReady(child, line); };
    const auto onDue = [this](Child& child) { startChild(child); };
    children_.emplace_back(loop_, Child::Plan{name, rank, output, std::move(command), onChildReady, onDue});
}

Command Supervisor::panelCommand() const {
    return {programPath(panelName), options_.panelAddress(), std::to_string(options_.panelPort), options_.listen};
}

Command Supervisor::launcherCommand() const {
    Options options = options_;
    if (!options.telnetPort) {
        options.telnetPort = storedTelnetPort(Options::defaultTelnetPort);
        // A stored port may be one that cannot be had; the device comes up all the same.
        options.fallbackPort = readStartPorts().last;
    }
    Command command = options.arguments();
    command.insert(command.begin(), programPath(launcherName));
    return command;
}

void Supervisor::start() {
    deadline_.start(readyLimit);
    startChild(bus());
}

/// All but the bus need it; they are started when it is ready.
void Supervisor::startChild(Child& child) {
    if (outcome_ || (child.rank() != busRank && !bus().isReady()) || child.start()) return;
    report("%s cannot be started: %m", child.name().c_str());
    child.startLater();
}

void Supervisor::onReady(const Child& child, const std::string& line) {
    if (child.name() == busName) onBusReady();
    if (child.name() == launcherName) onLauncherReady(line);
    if (child.name() == panelName) panelLine_ = line;
    announceIfReady();
}

void Supervisor::onBusReady() {
    chmod(busPath().c_str(), S_IRUSR | S_IWUSR);
    // So it delivers an event to all subscribers before the first of them gets the processor.
    const sched_param noPriority = {};
    sched_setscheduler(bus().pid(), SCHED_BATCH, &noPriority);
    for (Child& child : children_) startChild(child);
}

/// The address is followed by the four ports. From now on they are these, also after a restart.
void Supervisor::onLauncherReady(const std::string& address) {
    std::istringstream words(address);
    std::string listen;
    int telnetPort = 0;
    words >> listen >> telnetPort;
    for (int& port : options_.rawPorts) words >> port;
    rememberStart(telnetPort);
    readyLine_ = "ready: telnet " + listen + " " + std::to_string(telnetPort) + " raw";
    for (const int port : options_.rawPorts) readyLine_.append(" ").append(std::to_string(port));
}

/// A port that was given is a setting from now on. One that was only listened on instead of the stored is none.
void Supervisor::rememberStart(int telnetPort) {
    StartPorts ports = readStartPorts();
    if (std::exchange(options_.telnetPort, std::nullopt)) {
        storeTelnetPort(telnetPort);
        ports.given = telnetPort;
    }
    if (!isAnnounced_) ports.last = telnetPort;
    if (!writeStartPorts(ports)) report("the port of this start cannot be kept: %m");
}

void Supervisor::announceIfReady() {
    const bool isReady = std::all_of(children_.begin(), children_.end(), [](const Child& c) { return c.isReady(); });
    if (!isReady || isAnnounced_ || outcome_) return;
    isAnnounced_ = true;
    deadline_.stop();
    std::puts(readyLine_.c_str());
    if (!panelLine_.empty()) std::puts(panelLine_.c_str());
    std::fflush(stdout);
}

void Supervisor::checkpoint() {
    settingsStore().checkpoint();
    statusStore().checkpoint();
    checkpoint_.start(checkpointTime);
}

void Supervisor::reap() {
    int status = 0;
    for (pid_t pid; (pid = waitpid(-1, &status, WNOHANG)) > 0;)
        for (Child& child : children_)
            if (child.pid() == pid) onEnded(child, status);
}

void Supervisor::onEnded(Child& child, int status) {
    child.ended();
    if (outcome_) return proceedStopping();
    const std::string end = describeEnd(status);
    if (!isAnnounced_) {
        report("%s ended before the device was ready (%s)", child.name().c_str(), end.c_str());
        return stop(Outcome::failed);
    }
    report("%s ended (%s) and is started again", child.name().c_str(), end.c_str());
    child.startLater();
}

void Supervisor::stop(Outcome outcome) {
    const bool isStopping = outcome_.has_value();
    // A stop overrides a restart that has begun.
    if (!isStopping || outcome_ == Outcome::restartWanted) outcome_ = outcome;
    if (!isStopping) proceedStopping();
}

/// Sessions end while the daemons that they use are still there, and these while the bus is.
void Supervisor::proceedStopping() {
    int highest = noRank;
    for (const Child& child : children_)
        if (child.isRunning()) highest = std::max(highest, child.rank());
    if (highest == endingRank_) return;
    endingRank_ = highest;
    if (highest == noRank) return finish();
    signalRank(SIGTERM);
    deadline_.start(endLimit);
}

void Supervisor::finish() {
    deadline_.stop();
    endOrphans();
    loop_.stop();
}

void Supervisor::signalRank(int number) {
    for (const Child& child : children_)
        if (child.rank() == endingRank_) child.signal(number);
}

void Supervisor::onDeadline() {
    if (outcome_) return signalRank(SIGKILL);
    for (const Child& child : children_)
        if (!child.isReady()) report("%s is not ready", child.name().c_str());
    stop(Outcome::failed);
}

}  // namespace host
