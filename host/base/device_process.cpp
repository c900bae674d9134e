#include "host/base/device_process.h"

#include "host/base/device_root.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <iterator>
#include <sys/file.h>
#include <unistd.h>

namespace host {
namespace {

/// The id in a lock file that somebody holds; 0 with errno set otherwise. Without a holder the id may be that of any
/// process.
pid_t holderOf(int lockFile) {
    if (flock(lockFile, LOCK_SH | LOCK_NB) == 0) {
        errno = ESRCH;
        return 0;
    }
    char text[16] = "";
    if (errno != EWOULDBLOCK || read(lockFile, text, sizeof text - 1) <= 0) return 0;
    pid_t id = 0;
    std::from_chars(text, std::end(text), id);
    if (id <= 1) errno = ESRCH;
    return id > 1 ? id : 0;
}

}  // namespace

std::string deviceLockPath() { return inRoot("device.lock"); }

bool signalDevice(int signal) {
    const UniqueFd lockFile(open(deviceLockPath().c_str(), O_RDONLY | O_CLOEXEC));
    const pid_t holder = lockFile ? holderOf(lockFile.get()) : 0;
    return holder != 0 && kill(holder, signal) == 0;
}

UniqueFd becomeDevice() {
    UniqueFd lockFile(open(deviceLockPath().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    const bool isLocked = lockFile && flock(lockFile.get(), LOCK_EX | LOCK_NB) == 0 &&
                          ftruncate(lockFile.get(), 0) == 0 && dprintf(lockFile.get(), "%d\n", getpid()) > 0;
    if (!isLocked) lockFile.reset();
    return lockFile;
}

}  // namespace host
