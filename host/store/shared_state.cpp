#include "host/store/shared_state.h"

#include "host/base/unique_fd.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {
namespace {

void* mapWhole(int fd) {
    struct stat status = {};
    if (fstat(fd, &status) == 0 && status.st_size == sizeof(SharedState))
        return mmap(nullptr, sizeof(SharedState), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    errno = EBADMSG;
    return MAP_FAILED;
}

}  // namespace

bool makeSharedState(const std::string& path) {
    const std::string fresh = path + ".new";
    unlink(fresh.c_str());
    const UniqueFd fd(open(fresh.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!fd) return false;
    // Real blocks: on a full disk it fails here and not at the first access to the memory.
    const int error = posix_fallocate(fd.get(), 0, sizeof(SharedState));
    void* memory = mapWhole(fd.get());
    if (error != 0) errno = error;
    if (memory == MAP_FAILED) return false;
    new (memory) SharedState;
    munmap(memory, sizeof(SharedState));
    return std::rename(fresh.c_str(), path.c_str()) == 0;
}

SharedState* mapSharedState(const std::string& path) {
    const UniqueFd fd(open(path.c_str(), O_RDWR | O_CLOEXEC));
    void* memory = fd ? mapWhole(fd.get()) : MAP_FAILED;
    return memory == MAP_FAILED ? nullptr : static_cast<SharedState*>(memory);
}

}  // namespace host
