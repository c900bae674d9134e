/// A path as the socket calls take it.
#pragma once

#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace host {

class UnixAddress {
  public:
    /// The calls refuse, with EINVAL, the address of a path that is too long.
    explicit UnixAddress(const std::string& path)
        : size_(path.size() < sizeof address_.sun_path ? sizeof address_ : 0) {
        address_.sun_family = AF_UNIX;
        path.copy(address_.sun_path, sizeof address_.sun_path - 1);
    }

    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&address_); }
    socklen_t size() const { return size_; }

  private:
    sockaddr_un address_ = {};
    socklen_t size_;
};

}  // namespace host
