#include "host/launcher/console_process.h"

#include "console/ports.h"
#include "host/base/device_root.h"
#include "host/launcher/terminal.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <limits>
#include <signal.h>
#include <sstream>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace host {
namespace {

/// The console waits with select(), which can name no descriptor from 1024 on.
constexpr rlim_t consoleDescriptorLimit = 256;

/// The hardware address of the neighbour with that IPv4 address in the machine's table; empty when it is not known.
std::string hardwareAddressOf(const std::string& address) {
    constexpr unsigned completeFlag = 0x2;
    std::ifstream table("/proc/net/arp");
    table.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        std::string neighbour, type, flags, hardwareAddress;
        fields >> neighbour >> type >> flags >> hardwareAddress;
        const bool isComplete = (std::strtoul(flags.c_str(), nullptr, 0) & completeFlag) != 0;
        if (neighbour == address && isComplete) return hardwareAddress;
    }
    return {};
}

/// Nothing of the launcher's environment and nothing that a client could choose. The search path ends with the
/// stand-ins, so that no shell line of a console finds the machine's own programs.
std::vector<std::string> environmentOf(const std::string& clientAddress) {
    std::vector<std::string> environment = {
        "PATH=" + inRoot("sbin"), std::string(deviceRootVariable) + "=" + deviceRoot(),
        "TELNET_CLIENT_IP=" + clientAddress,
        "MALLOC_ARENA_MAX=1",  // threads that hardly allocate share one arena
    };
    const std::string hardwareAddress = hardwareAddressOf(clientAddress);
    if (!hardwareAddress.empty()) environment.push_back("TELNET_CLIENT_MAC=" + hardwareAddress);
    return environment;
}

/// The launcher itself is allowed many more.
void limitDescriptors(pid_t pid) {
    const rlimit limit = {consoleDescriptorLimit, consoleDescriptorLimit};
    prlimit(pid, RLIMIT_NOFILE, &limit, nullptr);
}

}  // namespace

std::optional<ConsoleProcess> ConsoleProcess::start(const std::string& programName, const std::string& clientAddress) {
    UniqueFd terminal = openTerminal();
    if (!terminal) return std::nullopt;
    const pid_t pid = startOnTerminal(
        terminal.get(),
        {.path = deviceRoot() + programName, .arguments = {programName}, .environment = environmentOf(clientAddress)});
    if (pid < 0) return std::nullopt;
    limitDescriptors(pid);
    return ConsoleProcess(std::move(terminal), pid);
}

std::size_t ConsoleProcess::unreadBytes() const {
    const UniqueFd programsEnd(ioctl(terminal_.get(), TIOCGPTPEER, O_RDWR | O_NOCTTY | O_CLOEXEC));
    int count = 0;
    if (programsEnd) ioctl(programsEnd.get(), FIONREAD, &count);
    return static_cast<std::size_t>(count);
}

void ConsoleProcess::signal(int number) const { kill(pid_, number); }

bool deviceRootIsComplete() {
    for (const char* name : {"sbin/reboot", "sbin/killall"})
        if (access(inRoot(name).c_str(), X_OK) != 0) return false;
    for (const ConsolePort& port : consolePorts)
        if (access((deviceRoot() + port.programName).c_str(), X_OK) != 0) return false;
    return true;
}

}  // namespace host
