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

/// Takes a "--root DIR" or "--root=DIR" that stands at `at` out of `arguments`; without its DIR it names no folder.
bool takeRoot(Arguments& arguments, std::size_t at) {
    constexpr std::string_view option = "--root";
    const std::string_view word = arguments[at];
    const bool isOneWord = word.starts_with("--root=");
    if (!isOneWord && word != option) return false;
    const std::size_t end = std::min(at + (isOneWord ? 1 : 2), arguments.size());
    const bool isAlone = !isOneWord && end == at + 1;
    setDeviceRoot(isOneWord ? arguments[at] + option.size() + 1 : isAlone ? "" : arguments[at + 1]);
    const auto first = arguments.begin() + static_cast<std::ptrdiff_t>(at);
    arguments.erase(first, arguments.begin() + static_cast<std::ptrdiff_t>(end));
    return true;
}

bool isRootKnown() {
    const char* root = std::getenv(deviceRootVariable);
    return root != nullptr && *root != '\0';
}

int run(const char* program, Arguments arguments) {
    for (std::size_t at = 0; at < arguments.size();) {
        const std::string_view word = arguments[at];
        if (word == "--help") return showHelp(program, stdout);
        if (word == "--version") return showVersion();
        if (word == "--") {
            arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        }
        if (!takeRoot(arguments, at)) ++at;
    }
    if (arguments.empty()) return showHelp(program, stderr);
    return isRootKnown() ? runVerb(arguments) : explain("--root DIR has to name the device's folder");
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) { return host::run(argv[0], host::Arguments(argv + std::min(argc, 1), argv + argc)); }
