/// Gives each connection to one of the device's ports a console of its own.
#include "host/base/device_root.h"
#include "host/base/readiness.h"
#include "host/launcher/console_process.h"
#include "host/launcher/launcher_service.h"
#include "host/launcher/options.h"
#include "host/launcher/ports.h"
#include "host/launcher/sessions.h"
#include "host/loop/event_loop.h"

#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace host {
namespace {

/// Consoles run in the device root, and nothing of them outside of it.
bool enterDeviceRoot() {
    if (deviceRootIsComplete() && chdir(deviceRoot().c_str()) == 0) return true;
    std::fprintf(stderr, "launcher: %s is not a complete device root\n", deviceRoot().c_str());
    return false;
}

/// Two descriptors a session, and more while it begins and ends.
void raiseDescriptorLimit() {
    rlimit limit;
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

int serve(const Options& options) {
    EventLoop loop;
    Sessions sessions(loop, options);
    Ports ports(loop, options, sessions);
    if (!ports.open()) return 1;
    LauncherService service(loop, ports, sessions);
    const auto stop = [&] {
        ports.close();
        sessions.close([&loop] { loop.stop(); });
    };
    SignalWatch onTerminate(loop, SIGTERM, stop), onInterrupt(loop, SIGINT, stop);
    announceReady(ports.description());
    loop.run();
    return 0;
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    host::Options options;
    if (const auto status = options.read(argc, argv, "serves the ports of a device, which starts it")) return *status;
    if (!host::enterDeviceRoot()) return 1;
    host::raiseDescriptorLimit();
    std::signal(SIGPIPE, SIG_IGN);
    return host::serve(options);
}
