/// Runs a whole device in the foreground.
#include "host/base/device_process.h"
#include "host/base/device_root.h"
#include "host/base/factory_store.h"
#include "host/base/note.h"
#include "host/base/readiness.h"
#include "host/base/start_program.h"
#include "host/launcher/options.h"
#include "host/loop/event_loop.h"
#include "host/supervisor/root_layout.h"
#include "host/supervisor/stores.h"
#include "host/supervisor/supervisor.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace host {
namespace {

/// Signals that come before the device listens to them wait until it does.
void holdSignals(int how) {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGUSR1}) sigaddset(&signals, number);
    sigprocmask(how, &signals, nullptr);
}

void warnIfExposed(const std::string& listen) {
    if (isLoopback(listen)) return;
    std::fprintf(stderr, "device: warning: anyone who reaches %s can operate this device\n", listen.c_str());
}

/// What every process of the device inherits: files for the owner alone, and a search path that ends with the
/// stand-ins, so that nobody finds the machine's own reboot.
void prepareEnvironment(std::string& root) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(root, error).lexically_normal();
    root = std::filesystem::weakly_canonical(absolute, error);
    setDeviceRoot(root);
    setenv(readyDescriptorVariable, std::to_string(readyDescriptor).c_str(), 1);
    setenv("PATH", inRoot("sbin").c_str(), 1);
    umask(S_IRWXG | S_IRWXO);
    std::signal(SIGPIPE, SIG_IGN);
    prctl(PR_SET_CHILD_SUBREAPER, 1);  // of every process that outlives its own parent
}

Supervisor::Outcome run(Options& options) {
    EventLoop loop;
    Supervisor supervisor(loop, options);
    const auto stop = [&supervisor] { supervisor.stop(Supervisor::Outcome::stopped); };
    SignalWatch onInterrupt(loop, SIGINT, stop), onTerminate(loop, SIGTERM, stop), onHangUp(loop, SIGHUP, stop);
    SignalWatch onRestart(loop, SIGUSR1, [&supervisor] { supervisor.stop(Supervisor::Outcome::restartWanted); });
    holdSignals(SIG_UNBLOCK);
    supervisor.start();
    loop.run();
    holdSignals(SIG_BLOCK);
    options = supervisor.options();
    return supervisor.outcome();
}

/// A new image of the program keeps no state of the last run.
void startAnew(const Options& options) {
    std::vector<std::string> words = options.arguments();
    words.insert(words.begin(), program_invocation_name);
    execv("/proc/self/exe", execWords(words).data());
    std::perror("device: restart");
}

UniqueFd lockRoot() {
    UniqueFd lock = becomeDevice();
    const char* reason = errno == EWOULDBLOCK ? "a device runs there already" : std::strerror(errno);
    if (!lock) std::fprintf(stderr, "device: %s: %s\n", deviceRoot().c_str(), reason);
    return lock;
}

bool prepareFactory() {
    if (prepareFactoryData()) return true;
    report("no factory data: %m");
    return false;
}

int runDevice(Options& options) {
    if (!makeRoot() || chdir(options.root.c_str()) != 0) return 1;
    const UniqueFd lock = lockRoot();
    if (!lock || !layOutRoot() || !prepareStores() || !prepareFactory()) return 1;
    const Supervisor::Outcome outcome = run(options);
    if (outcome == Supervisor::Outcome::restartWanted) startAnew(options);
    return outcome == Supervisor::Outcome::stopped ? 0 : 1;
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    host::holdSignals(SIG_BLOCK);
    host::Options options;
    if (const std::optional<int> status = options.read(argc, argv, "runs a device until Ctrl-C or SIGTERM"))
        return *status;
    host::warnIfExposed(options.listen);
    if (options.panelPort != 0) host::warnIfExposed(options.panelAddress());
    host::prepareEnvironment(options.root);
    return host::runDevice(options);
}
