#include "tests/store/file_writes.h"

#include <cerrno>
#include <filesystem>
#include <sqlite3.h>
#include <sys/syscall.h>
#include <unistd.h>

std::atomic<int> syncs = 0;
bool isDiskFull = false;

namespace {

std::vector<FileWrite>* record = nullptr;

void note(FileWrite::Kind kind, int fd, off_t offset = 0, std::string bytes = {}) {
    if (record == nullptr) return;
    const auto path = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(fd));
    record->push_back({kind, path, offset, std::move(bytes)});
}

ssize_t writeNoted(int fd, const void* bytes, std::size_t count, off_t offset) {
    if (isDiskFull) {
        errno = ENOSPC;
        return -1;
    }
    note(FileWrite::Kind::data, fd, offset, {static_cast<const char*>(bytes), count});
    return pwrite(fd, bytes, count, offset);
}

int truncateNoted(int fd, off_t length) {
    note(FileWrite::Kind::length, fd, length);
    return ftruncate(fd, length);
}

template <typename Function>
void replaceCall(const char* name, Function function) {
    sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
    vfs->xSetSystemCall(vfs, name, reinterpret_cast<sqlite3_syscall_ptr>(function));
}

}  // namespace

/// The store's own syncs pass through here.
extern "C" int fdatasync(int fd) {
    ++syncs;
    note(FileWrite::Kind::sync, fd);
    return static_cast<int>(syscall(SYS_fdatasync, fd));
}

WriteRecording::WriteRecording() {
    record = &writes_;
    for (const char* name : {"pwrite", "pwrite64"}) replaceCall(name, writeNoted);
    replaceCall("ftruncate", truncateNoted);
}

WriteRecording::~WriteRecording() {
    for (const char* name : {"pwrite", "pwrite64", "ftruncate"}) replaceCall(name, static_cast<int (*)()>(nullptr));
    record = nullptr;
}
