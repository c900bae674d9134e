/// A page of a file that is overwritten and made durable, the minimum for storing a setting.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace bench {

class DurablePage {
  public:
    /// Writes the page once, so that later writes go to a block that the file already has. Ends the process when it
    /// cannot.
    explicit DurablePage(const char* path) : file_(open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (!write() || fsync(file_) != 0) exitWithError(path);
    }

    ~DurablePage() { close(file_); }

    DurablePage(const DurablePage&) = delete;
    DurablePage& operator=(const DurablePage&) = delete;

    void overwrite() {
        ++bytes_[0];
        if (!write() || fdatasync(file_) != 0) exitWithError("page");
    }

  private:
    [[noreturn]] static void exitWithError(const char* what) {
        std::perror(what);
        std::exit(1);
    }

    bool write() const { return pwrite(file_, bytes_.data(), bytes_.size(), 0) >= 0; }

    int file_;
    std::array<char, 4096> bytes_{};
};

}  // namespace bench
