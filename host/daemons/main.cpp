/// Runs one of the device's stand-in daemons.
#include "host/base/version.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <iterator>
#include <string_view>

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--version") return host::printVersion();
    const auto* const kind = std::ranges::find(host::daemonKinds, argc == 2 ? argv[1] : "", &host::DaemonKind::name);
    if (kind == std::end(host::daemonKinds)) {
        std::fprintf(stderr, "usage: %s DAEMON\n", argv[0]);
        return 2;
    }
    // The log names the daemon, not the program that all of them are.
    program_invocation_short_name = argv[1];
    std::signal(SIGPIPE, SIG_IGN);
    host::Daemon daemon(argv[1]);
    const host::Service service = kind->make(daemon);
    return daemon.run();
}
