#include "host/base/readiness.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace host {

void announceReady(std::string_view text) {
    const char* descriptor = std::getenv(readyDescriptorVariable);
    if (descriptor == nullptr) return;
    int fd = -1;
    std::from_chars(descriptor, descriptor + std::strlen(descriptor), fd);
    const std::string line = std::string(text) + "\n";
    if (write(fd, line.data(), line.size()) < 0) std::exit(1);
    close(fd);
    unsetenv(readyDescriptorVariable);
}

}  // namespace host
