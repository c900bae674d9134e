#include "host/supervisor/root_layout.h"

#include "console/ports.h"
#include "host/base/device_process.h"
#include "host/base/device_root.h"
#include "host/base/log_levels.h"
#include "host/bus/bus_names.h"
#include "host/bus/call_log.h"
#include "host/store/store.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr const char* standIns[] = {"mnt/mtd/bin/apploggertool", "mnt/mtd/bin/factory_tool", "sbin/reboot",
                                    "sbin/killall"};

bool report(const std::string& path, const std::error_code& error) {
    if (error) std::fprintf(stderr, "device: %s: %s\n", path.c_str(), error.message().c_str());
    return !error;
}

std::error_code lastError() { return {errno, std::generic_category()}; }

bool link(const fs::path& program, const std::string& path) {
    std::error_code error;
    if (fs::read_symlink(path, error) == program) return true;
    fs::create_directories(fs::path(path).parent_path(), error);
    fs::remove(path, error);
    fs::create_symlink(program, path, error);
    return report(path, error);
}

bool belongsToAnother(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && status.st_uid != geteuid();
}

/// Otherwise a folder that was given by mistake would lose its permissions.
bool isRootOrEmpty(const std::string& path, std::error_code& error) {
    return fs::exists(deviceLockPath(), error) || fs::exists(settingsKind.databasePath(), error) ||
           fs::is_empty(path, error);
}

}  // namespace

bool makeRoot() {
    const std::string& root = deviceRoot();
    if (busPath().size() >= sizeof sockaddr_un::sun_path)
        return report(root, std::make_error_code(std::errc::filename_too_long));
    std::error_code error;
    fs::create_directories(root, error);
    if (!error && !isRootOrEmpty(root, error) && !error) error = std::make_error_code(std::errc::directory_not_empty);
    if (!error && chmod(root.c_str(), S_IRWXU) != 0) error = lastError();
    if (error && belongsToAnother(root))
        return report(root + " belongs to another user; --root names another folder", error);
    return report(root, error);
}

bool layOutRoot() {
    for (const ConsolePort& port : consolePorts)
        if (!link(programPath("cmdd"), deviceRoot() + port.programName)) return false;
    for (const char* name : standIns)
        if (!link(programPath("devicectl"), inRoot(name))) return false;
    if (!prepareLog()) return report(inRoot("log"), lastError());
    std::error_code error;
    fs::remove(callLogPath(), error);
    return report(callLogPath(), error);
}

std::string programPath(const char* name) {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).replace_filename(name);
}

}  // namespace host
