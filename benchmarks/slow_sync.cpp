/// Preloaded into consoles: a disk that takes 2 ms longer for each sync.

#include <sys/syscall.h>
#include <unistd.h>

extern "C" int fdatasync(int file) {
    constexpr useconds_t longer = 2000;
    usleep(longer);
    return static_cast<int>(syscall(SYS_fdatasync, file));
}
