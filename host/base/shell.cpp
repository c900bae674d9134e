#include "platform/shell.h"

#include "host/base/device_root.h"
#include "host/base/start_program.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <sys/wait.h>

namespace {

/// The device's tools stand below its root here. The shell gets the root as $0, so that it needs no quoting.
std::string mapIntoRoot(const char* command) {
    static constexpr char tools[] = "/mnt/mtd/bin/";
    const bool isTool = std::strncmp(command, tools, sizeof tools - 1) == 0;
    return std::string(isTool ? "\"$0\"" : "") + command;
}

/// The exit status as a shell reports it.
int waitForEnd(pid_t pid) {
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

int lsystem(const char* command) {
    const pid_t pid = host::startProgram({"/bin/sh", {"sh", "-c", mapIntoRoot(command), host::deviceRoot()}});
    return pid < 0 ? -1 : waitForEnd(pid);
}
