#include "settings/change_lock.h"

#include <cerrno>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr int longestWait = 10'000;  // milliseconds
constexpr useconds_t pause = 1'000;  // microseconds between two tries, because flock() has no time limit

std::int64_t millisecondsNow() {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

bool lockInTime(int file) {
    const std::int64_t end = millisecondsNow() + longestWait;
    while (flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK || millisecondsNow() >= end) return false;
        usleep(pause);
    }
    return true;
}

}  // namespace

ChangeLock::ChangeLock() : file_(open("/proc/self/exe", O_RDONLY | O_CLOEXEC)) {
    if (file_ >= 0 && !lockInTime(file_)) release();
}

void ChangeLock::release() {
    const int error = errno;
    if (file_ >= 0) close(file_);
    file_ = -1;
    errno = error;
}
