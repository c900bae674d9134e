/// Runs a whole device in the foreground.
#include "host/base/device_root.h"
#include "host/base/factory_store.h"
#include "host/base/note.h"
#include "host/base/readiness.h"
#include "host/base/start_program.h"
#include "host/loop/event_loop.h"
#include "host/supervisor/options.h"
#include "host/supervisor/programs.h"
#include "host/supervisor/root_layout.h"
#include "host/supervisor/root_lock.h"
#include "host/supervisor/stores.h"
#include "host/supervisor/supervisor.h"

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string_view>
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

/// What this process gives on to all it starts: files for the owner alone, and a search path that ends with the
/// stand-ins, so that nobody finds the machine's own reboot.
void prepareEnvironment(const std::string& root) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(root, error).lexically_normal();
    setDeviceRoot(std::filesystem::weakly_canonical(absolute, error));
    setenv(readyDescriptorVariable, std::to_string(readyDescriptor).c_str(), 1);
    setenv("PATH", inRoot("sbin").c_str(), 1);
    umask(S_IRWXG | S_IRWXO);
    std::signal(SIGPIPE, SIG_IGN);
    prctl(PR_SET_CHILD_SUBREAPER, 1);  // of every process that outlives its own parent
}

Supervisor::Outcome run(DeviceOptions& options, const Programs& programs) {
    EventLoop loop;
    Supervisor supervisor(loop, options, programs);
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

/// Nothing of the last run can linger in a process that begins anew.
void startAnew(const DeviceOptions& options) {
    std::vector<std::string> words = options.arguments();
    words.insert(words.begin(), program_invocation_name);
    execv("/proc/self/exe", execWords(words).data());
    std::perror("device: restart");
}

bool prepareFactory() {
    if (prepareFactoryData()) return true;
    report("no factory data: %m");
    return false;
}

int runDevice(DeviceOptions& options) {
    const Programs programs = Programs::find();
    if (!makeRoot()) return 1;
    const std::optional<RootLock> lock = RootLock::take();
    if (!lock || !layOutRoot(programs) || !prepareStores() || !prepareFactory()) return 1;
    const Supervisor::Outcome outcome = run(options, programs);
    if (outcome == Supervisor::Outcome::restartWanted) startAnew(options);
    return outcome == Supervisor::Outcome::stopped ? 0 : 1;
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    host::holdSignals(SIG_BLOCK);
    host::DeviceOptions options;
    if (const std::optional<int> status = options.read(argc, argv)) return *status;
    host::warnIfExposed(options.launch.listen);
    if (options.panelPort != 0) host::warnIfExposed(options.panelAddress());
    host::prepareEnvironment(options.root);
    return host::runDevice(options);
}
