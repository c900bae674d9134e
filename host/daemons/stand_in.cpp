/// Stands in, below the device root, for the tools that the console's shell lines call. The name it is started by says
/// which one it is.
#include "host/base/device_process.h"
#include "host/base/device_root.h"
#include "host/base/factory_store.h"
#include "host/base/log_levels.h"
#include "host/base/note.h"
#include "platform/logger.h"
#include "platform/lpc.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/auxv.h>
#include <vector>

namespace host {
namespace {

using Arguments = std::vector<std::string>;

/// Success, or a complaint that says what errno meant.
bool report(bool success, const char* what) {
    if (!success) std::fprintf(stderr, "%s: %s\n", what, std::strerror(errno));
    return success;
}

bool refuseArguments() {
    errno = EINVAL;
    return report(false, "arguments");
}

/// "-a console debug" lets the console's log lines of every level through, "-d" only the default ones.
bool runLoggerTool(const Arguments& arguments) {
    if (arguments == Arguments{"-d"}) return report(resetLogLevels(), "log levels");
    if (arguments.size() != 3 || arguments[0] != "-a" || arguments[2] != "debug") return refuseArguments();
    return report(setLogLevel(arguments[1], LOG_LEVEL_TRACE), arguments[1].c_str());
}

/// "-w KEY VALUE".
bool runFactoryTool(const Arguments& arguments) {
    if (arguments.size() != 3 || arguments[0] != "-w") return refuseArguments();
    return report(writeFactoryData(arguments[1].c_str(), arguments[2].c_str()), arguments[1].c_str());
}

bool runReboot(const Arguments& /*arguments*/) { return report(signalDevice(SIGUSR1), "device"); }

/// "*cmdd" stands for the device's consoles; there is nothing else here that it could end.
bool runKillall(const Arguments& arguments) {
    if (arguments.size() != 1 || !arguments[0].ends_with("cmdd")) return refuseArguments();
    return report(lpc_proxy_call("telnetLauncher", "endSessions", "") == 0, "telnetLauncher");
}

struct Tool {
    std::string_view name;
    bool (*run)(const Arguments& arguments);
};

constexpr Tool tools[] = {
    {"apploggertool", runLoggerTool}, {"factory_tool", runFactoryTool}, {"reboot", runReboot}, {"killall", runKillall}};

/// The link by which this program was started, whatever argv[0] says; empty where it is unknown.
std::filesystem::path startedPath() {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how the kernel hands it over.
    const auto* path = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path != nullptr ? path : "", error);
    return std::filesystem::canonical(absolute.parent_path(), error) / absolute.filename();
}

bool isInDeviceRoot(const std::filesystem::path& path) {
    if (std::getenv(deviceRootVariable) == nullptr) return false;
    std::error_code error;
    const std::string root = std::filesystem::canonical(deviceRoot(), error).string() + "/";
    return !error && path.string().starts_with(root);
}

void logStart(const Arguments& arguments) {
    std::string line;
    for (const std::string& argument : arguments) line += " [" + argument + "]";
    note("started with%s", line.c_str());
}

int run(const std::filesystem::path& path, const Arguments& arguments) {
    if (!isInDeviceRoot(path)) {
        std::fprintf(stderr, "%s: not started from a device root\n", path.c_str());
        return 1;
    }
    logStart(arguments);
    for (const Tool& tool : tools) {
        if (path.filename() == tool.name) return tool.run(arguments) ? 0 : 1;
    }
    std::fprintf(stderr, "%s: stands in for no tool\n", path.c_str());
    return 1;
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    return host::run(host::startedPath(), host::Arguments(argv + (argc > 0 ? 1 : 0), argv + argc));
}
