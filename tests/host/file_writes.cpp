#include "tests/host/file_writes.h"

#include "host/base/atomic_file.h"

#include <cerrno>
#include <filesystem>
#include <sqlite3.h>
#include <sys/syscall.h>
#include <unistd.h>

std::atomic<int> syncs = 0;
std::vector<Remains>* remains = nullptr;

/// The store's own syncs pass through here.
extern "C" int fdatasync(int fd) {
    ++syncs;
    if (remains != nullptr) {
        const std::string path = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(fd));
        remains->push_back(remains->back());
        remains->back()[path] = host::readFile(path).value_or("");
    }
    return static_cast<int>(syscall(SYS_fdatasync, fd));
}

namespace {

ssize_t refuse(int, const void*, std::size_t, off_t) {
    errno = ENOSPC;
    return -1;
}

void replaceWrites(ssize_t (*write)(int, const void*, std::size_t, off_t)) {
    sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
    for (const char* name : {"pwrite", "pwrite64"})
        vfs->xSetSystemCall(vfs, name, reinterpret_cast<sqlite3_syscall_ptr>(write));
}

}  // namespace

FullDisk::FullDisk() { replaceWrites(refuse); }

FullDisk::~FullDisk() { replaceWrites(nullptr); }
