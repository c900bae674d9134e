#include "host/loop/unique_fd.h"

#include <unistd.h>

namespace host {

void UniqueFd::reset(int fd) {
    if (fd_ >= 0) close(fd_);
    fd_ = fd;
}

}  // namespace host
