/// Looks into a device and works on it from outside, by hand or in a script.
#include "host/base/device_root.h"
#include "host/base/version.h"
#include "host/devicectl/verb.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace host {
namespace {

int showHelp(const char* program, std::FILE* stream) {
    std::fprintf(stream, "usage: %s [--root DIR] COMMAND, one of:\n", program);
    for (const Verb& verb : verbs()) std::fprintf(stream, "  %-26s %s\n", verb.usage().c_str(), verb.help);
    std::fprintf(stream,
                 "  --root DIR                 the device's folder (./devicectl: .device)\n"
                 "  --help, --version          this list; the version\n"
                 "  --                         what follows is no option\n");
    return stream == stdout ? 0 : usageStatus;
}

int showVersion() {
    std::printf("devicectl %s\n", version);
    return 0;
}

/// Takes a "--root DIR" or "--root=DIR" that stands at `at` out of `arguments`.
bool takeRoot(Arguments& arguments, std::size_t at) {
    constexpr std::string_view option = "--root";
    const std::string_view word = arguments[at];
    const bool isOneWord = word.starts_with("--root=");
    if (!isOneWord && (word != option || at + 1 == arguments.size())) return false;
    setDeviceRoot(isOneWord ? arguments[at] + option.size() + 1 : arguments[at + 1]);
    const auto first = arguments.begin() + static_cast<std::ptrdiff_t>(at);
    arguments.erase(first, first + (isOneWord ? 1 : 2));
    return true;
}

int run(const char* program, Arguments arguments) {
    bool isRootKnown = std::getenv(deviceRootVariable) != nullptr;
    for (std::size_t at = 0; at < arguments.size();) {
        const std::string_view word = arguments[at];
        if (word == "--help") return showHelp(program, stdout);
        if (word == "--version") return showVersion();
        if (word == "--") {
            arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        }
        const bool isTaken = takeRoot(arguments, at);
        isRootKnown = isRootKnown || isTaken;
        if (!isTaken) ++at;
    }
    if (arguments.empty() || !isRootKnown) return showHelp(program, stderr);
    return runVerb(arguments);
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) { return host::run(argv[0], host::Arguments(argv + std::min(argc, 1), argv + argc)); }
