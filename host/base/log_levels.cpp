#include "host/base/log_levels.h"

#include "host/base/device_root.h"
#include "host/base/unique_fd.h"
#include "platform/logger.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Levels = std::array<int, LOG_CATEGORY_COUNT>;

constexpr Levels defaultLevels = {LOG_LEVEL_ERROR};
constexpr std::array<std::string_view, LOG_CATEGORY_COUNT> categoryNames = {"console"};

constexpr char levelsFile[] = "log/levels";

}  // namespace

const volatile int* __logLevels = defaultLevels.data();

namespace host {
namespace {

/// Lets __logLevels follow the file. Whoever has no such file keeps the defaults.
void followLevels(const std::string& path) {
    const UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    void* shared = mmap(nullptr, sizeof(Levels), PROT_READ, MAP_SHARED, fd.get(), 0);
    if (shared != MAP_FAILED) __logLevels = static_cast<const volatile int*>(shared);
}

/// Before main(), so that the levels hold for the first line. A process that chooses the root itself calls prepareLog()
/// later.
[[gnu::constructor]] void followLevelsOfInheritedRoot() {
    if (const char* root = std::getenv(deviceRootVariable)) followLevels(std::string(root) + "/" + levelsFile);
}

/// Written in place: other processes have the file mapped.
bool writeLevels(const int* levels, std::size_t count, std::size_t first, int flags) {
    const UniqueFd fd(open(inRoot(levelsFile).c_str(), O_WRONLY | O_CLOEXEC | flags, 0600));
    const auto size = static_cast<ssize_t>(count * sizeof(int));
    return fd && pwrite(fd.get(), levels, count * sizeof(int), static_cast<off_t>(first * sizeof(int))) == size;
}

/// With blocks reserved for its first lines, so that a full disk can still be logged.
bool makeLog(const std::string& path) {
    const UniqueFd fd(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    if (!fd) return false;
    fallocate(fd.get(), FALLOC_FL_KEEP_SIZE, 0, 128 << 10);
    return true;
}

}  // namespace

bool prepareLog() {
    const std::string log = inRoot("log/device.log");
    if (mkdir(inRoot("log").c_str(), 0700) != 0 && errno != EEXIST) return false;
    if (std::rename(log.c_str(), (log + ".1").c_str()) != 0 && errno != ENOENT) return false;
    if (!makeLog(log) || !writeLevels(defaultLevels.data(), defaultLevels.size(), 0, O_CREAT)) return false;
    followLevels(inRoot(levelsFile));
    return true;
}

bool setLogLevel(std::string_view category, int level) {
    const auto* const name = std::find(categoryNames.begin(), categoryNames.end(), category);
    if (name == categoryNames.end()) {
        errno = EINVAL;
        return false;
    }
    return writeLevels(&level, 1, static_cast<std::size_t>(name - categoryNames.begin()), 0);
}

bool resetLogLevels() { return writeLevels(defaultLevels.data(), defaultLevels.size(), 0, 0); }

}  // namespace host
