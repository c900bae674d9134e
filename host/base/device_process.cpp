#include "host/base/device_process.h"

#include "host/base/device_root.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>

namespace host {
namespace {

/// A lock on the whole file, for one process alone.
struct flock wholeFile() {
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    return lock;
}

}  // namespace

std::string deviceLockPath() { return inRoot("device.lock"); }

bool signalDevice(int signal) {
    const UniqueFd lockFile(open(deviceLockPath().c_str(), O_RDONLY | O_CLOEXEC));
    struct flock lock = wholeFile();
    if (!lockFile || fcntl(lockFile.get(), F_GETLK, &lock) != 0) return false;
    if (lock.l_pid > 0) return kill(lock.l_pid, signal) == 0;
    errno = ESRCH;
    return false;
}

UniqueFd becomeDevice() {
    UniqueFd lockFile(open(deviceLockPath().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    struct flock lock = wholeFile();
    if (lockFile && fcntl(lockFile.get(), F_SETLK, &lock) != 0) lockFile.reset();
    return lockFile;
}

}  // namespace host
