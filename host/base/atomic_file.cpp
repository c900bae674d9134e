#include "host/base/atomic_file.h"

#include "host/base/unique_fd.h"

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

/// Makes a rename within `folder` durable.
bool syncFolder(const std::string& folder) {
    const UniqueFd fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return fd && fsync(fd.get()) == 0;
}

}  // namespace

bool replaceFile(const std::string& path, std::string_view content) {
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    std::string fresh = folder + ".new-XXXXXX";
    UniqueFd fd(mkostemp(fresh.data(), O_CLOEXEC));
    if (!fd) return false;
    const bool isWritten = writeAll(fd.get(), content) && fsync(fd.get()) == 0 && close(fd.release()) == 0;
    if (isWritten && std::rename(fresh.c_str(), path.c_str()) == 0) return syncFolder(folder);
    unlink(fresh.c_str());
    return false;
}

std::optional<std::string> readFile(const std::string& path) {
    const UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!fd) return std::nullopt;
    std::string content;
    std::array<char, 4096> piece;
    ssize_t got = 0;
    while ((got = read(fd.get(), piece.data(), piece.size())) > 0)
        content.append(piece.data(), static_cast<std::size_t>(got));
    return got == 0 ? std::optional(std::move(content)) : std::nullopt;
}

void appendLine(const std::string& path, const std::string& line) {
    const UniqueFd fd(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600));
    const std::string text = line + '\n';
    if (fd && write(fd.get(), text.data(), text.size()) < 0) {
        // A full disk: there is nowhere to say so that would not be somebody's connection.
    }
}

}  // namespace host
