#include "host/base/atomic_file.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace host {
namespace {

bool writeAll(int fd, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = write(fd, content.data(), content.size());
        if (written < 0) return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Makes a rename within `folder` last.
bool syncFolder(const std::string& folder) {
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool isSynced = fsync(fd) == 0;
    close(fd);
    return isSynced;
}

/// Closes `fd`.
bool writeForGood(int fd, std::string_view content) {
    const bool isWritten = writeAll(fd, content) && fsync(fd) == 0;
    return (close(fd) == 0) && isWritten;
}

}  // namespace

bool replaceFile(const std::string& path, std::string_view content) {
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    std::string fresh = folder + ".new-XXXXXX";
    const int fd = mkostemp(fresh.data(), O_CLOEXEC);
    if (fd < 0) return false;
    if (writeForGood(fd, content) && std::rename(fresh.c_str(), path.c_str()) == 0) return syncFolder(folder);
    unlink(fresh.c_str());
    return false;
}

std::optional<std::string> readFile(const std::string& path) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return std::nullopt;
    std::string content;
    std::array<char, 4096> piece;
    ssize_t got = 0;
    while ((got = read(fd, piece.data(), piece.size())) > 0)
        content.append(piece.data(), static_cast<std::size_t>(got));
    close(fd);
    if (got < 0) return std::nullopt;
    return content;
}

}  // namespace host
