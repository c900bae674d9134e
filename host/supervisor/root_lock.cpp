#include "host/supervisor/root_lock.h"

#include "host/base/device_process.h"
#include "host/base/device_root.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace host {
namespace {

bool writeProcessId(int file) {
    const std::string id = std::to_string(getpid()) + "\n";
    return ftruncate(file, 0) == 0 && write(file, id.data(), id.size()) == static_cast<ssize_t>(id.size());
}

}  // namespace

std::optional<RootLock> RootLock::take() {
    UniqueFd file(open(deviceLockPath().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (file && flock(file.get(), LOCK_EX | LOCK_NB) == 0 && writeProcessId(file.get()))
        return RootLock(std::move(file));
    const char* reason = errno == EWOULDBLOCK ? "a device runs there already" : std::strerror(errno);
    std::fprintf(stderr, "device: %s: %s\n", deviceRoot().c_str(), reason);
    return std::nullopt;
}

}  // namespace host
