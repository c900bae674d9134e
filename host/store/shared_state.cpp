#include "host/store/shared_state.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {
namespace {

/// Closes `fd`.
void* mapWhole(int fd) {
    struct stat status = {};
    void* memory = MAP_FAILED;
    if (fstat(fd, &status) == 0 && status.st_size == sizeof(SharedState)) {
        memory = mmap(nullptr, sizeof(SharedState), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    } else {
        errno = EBADMSG;
    }
    close(fd);
    return memory;
}

}  // namespace

bool makeSharedState(const std::string& path) {
    const std::string fresh = path + ".new";
    unlink(fresh.c_str());
    const int fd = open(fresh.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0) return false;
    // Real blocks: on a full disk it fails here and not at the first access to the memory.
    const int error = posix_fallocate(fd, 0, sizeof(SharedState));
    void* memory = mapWhole(fd);
    if (error != 0) errno = error;
    if (memory == MAP_FAILED) return false;
    new (memory) SharedState;
    munmap(memory, sizeof(SharedState));
    return std::rename(fresh.c_str(), path.c_str()) == 0;
}

SharedState* mapSharedState(const std::string& path) {
    const int fd = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (fd < 0) return nullptr;
    void* memory = mapWhole(fd);
    return memory == MAP_FAILED ? nullptr : static_cast<SharedState*>(memory);
}

}  // namespace host
