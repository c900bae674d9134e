#include "platform/shell.h"

#include "host/base/device_root.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// The device's tools stand below its root here. The shell gets the root as $0, so that it needs no quoting.
std::string mapIntoRoot(const char* command) {
    static constexpr char tools[] = "/mnt/mtd/bin/";
    const bool isTool = std::strncmp(command, tools, sizeof tools - 1) == 0;
    return std::string(isTool ? "\"$0\"" : "") + command;
}

/// The command's own world: default signals, nothing blocked, and no operator's bytes to read.
class CommandStart {
  public:
    CommandStart() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        sigset_t all, none;
        sigfillset(&all);
        sigemptyset(&none);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~CommandStart() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&actions_);
    }
    CommandStart(const CommandStart&) = delete;
    CommandStart& operator=(const CommandStart&) = delete;

    /// -1 with errno set on failure.
    pid_t run(const char* command) {
        std::string name = "sh", option = "-c", mapped = mapIntoRoot(command), root = host::deviceRoot();
        const std::array<char*, 5> arguments = {name.data(), option.data(), mapped.data(), root.data(), nullptr};
        pid_t pid = -1;
        errno = posix_spawn(&pid, "/bin/sh", &actions_, &attributes_, arguments.data(), environ);
        return errno == 0 ? pid : -1;
    }

  private:
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

/// The exit status as a shell tells it.
int waitForEnd(pid_t pid) {
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

int lsystem(const char* command) {
    const pid_t pid = CommandStart().run(command);
    return pid < 0 ? -1 : waitForEnd(pid);
}
