#include "host/devicectl/tool.h"

#include "host/base/device_process.h"
#include "host/base/device_root.h"
#include "host/base/factory_store.h"
#include "host/base/log_levels.h"
#include "host/base/note.h"
#include "platform/logger.h"
#include "platform/lpc.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <sys/auxv.h>

namespace host {
namespace {

namespace fs = std::filesystem;

/// Success, or a complaint that says what errno meant.
bool report(bool success, const char* what) {
    if (!success) std::perror(what);
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

/// The link by which this program was started, whatever argv[0] says.
fs::path startedPath() {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how the kernel hands it over.
    const auto* path = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
    return path != nullptr ? path : "";
}

bool isInDeviceRoot(const fs::path& link) {
    if (std::getenv(deviceRootVariable) == nullptr) return false;
    std::error_code error;
    const std::string root = fs::canonical(deviceRoot(), error).string() + "/";
    return !error && fs::canonical("." / link.parent_path(), error).string().starts_with(root);
}

void logStart(const Arguments& arguments) {
    std::string line;
    for (const std::string& argument : arguments) line += " [" + argument + "]";
    note("started with%s", line.c_str());
}

}  // namespace

std::optional<int> runTool(const Arguments& arguments) {
    const fs::path path = startedPath();
    const std::string name = path.filename();
    const auto* const tool = std::ranges::find(tools, name, &Tool::name);
    if (tool == std::end(tools)) return std::nullopt;
    if (!isInDeviceRoot(path)) {
        std::fprintf(stderr, "%s: not started from a device root\n", path.c_str());
        return failureStatus;
    }
    logStart(arguments);
    return tool->run(arguments) ? 0 : failureStatus;
}

}  // namespace host
