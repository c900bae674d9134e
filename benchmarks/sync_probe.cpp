/// Preloaded into a console: counts its syncs and makes each of them take longer.
///
/// SYNC_LOG names a file that grows by one byte a sync; SYNC_DELAY is the added time in microseconds.

#include <cstdlib>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

int openLog() {
    const char* path = std::getenv("SYNC_LOG");
    return path != nullptr ? open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600) : -1;
}

unsigned delay() {
    const char* microseconds = std::getenv("SYNC_DELAY");
    return microseconds != nullptr ? static_cast<unsigned>(std::strtoul(microseconds, nullptr, 10)) : 0;
}

int sync(long call, int file) {
    static const int log = openLog();
    if (log >= 0 && write(log, ".", 1) != 1) std::abort();
    usleep(delay());
    return static_cast<int>(syscall(call, file));
}

}  // namespace

extern "C" int fsync(int file) { return sync(SYS_fsync, file); }

extern "C" int fdatasync(int file) { return sync(SYS_fdatasync, file); }
