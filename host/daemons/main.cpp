/// Runs one of the device's stand-in daemons.
#include "host/base/version.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string_view>

namespace host {
namespace {

const DaemonKind* findKind(std::string_view name) {
    for (const DaemonKind& kind : daemonKinds()) {
        if (name == kind.name) return &kind;
    }
    return nullptr;
}

int run(const DaemonKind& kind) {
    Daemon daemon(kind.name);
    const Service service = kind.make(daemon);
    return daemon.run();
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--version") return host::printVersion();
    const host::DaemonKind* kind = argc == 2 ? host::findKind(argv[1]) : nullptr;
    if (kind == nullptr) {
        std::fprintf(stderr, "usage: %s DAEMON\n", argv[0]);
        return 2;
    }
    // The log names the daemon, not the program that all of them are.
    program_invocation_short_name = argv[1];
    std::signal(SIGPIPE, SIG_IGN);
    return host::run(*kind);
}
