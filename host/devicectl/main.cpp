/// Looks into a device and works on it from outside, by hand or in a script.
#include "host/base/device_root.h"
#include "host/base/version.h"
#include "host/devicectl/tool.h"
#include "host/devicectl/verb.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace host {
namespace {

int showHelp(const char* program, std::FILE* stream) {
    std::fprintf(stream, "usage: %s [--root DIR] COMMAND, one of:\n", program);
    for (const Verb& verb : verbs()) std::fprintf(stream, "  %-26s %s\n", verb.usage, verb.help);
    std::fprintf(stream,
                 "  --root DIR                 the device's folder (./devicectl: .device)\n"
                 "  --help, --version          this list; the version\n"
                 "  --                         what follows is no option\n");
    return stream == stdout ? 0 : usageStatus;
}

bool isRootKnown() {
    const char* root = std::getenv(deviceRootVariable);
    return root != nullptr && *root != '\0';
}

/// "--root DIR" and "--root=DIR" may stand anywhere; without its DIR it names no folder.
int run(const char* program, const Arguments& arguments) {
    constexpr std::string_view rootIs = "--root=";
    Arguments words;
    auto word = arguments.begin();
    for (; word != arguments.end() && *word != "--"; ++word) {
        if (*word == "--help") return showHelp(program, stdout);
        if (*word == "--version") return printVersion();
        if (word->starts_with(rootIs)) {
            setDeviceRoot(word->substr(rootIs.size()));
        } else if (*word == "--root") {
            setDeviceRoot(word + 1 != arguments.end() ? *++word : "");
        } else {
            words.push_back(*word);
        }
    }
    if (word != arguments.end()) words.insert(words.end(), word + 1, arguments.end());
    if (words.empty()) return showHelp(program, stderr);
    return isRootKnown() ? runVerb(words) : explain("--root DIR has to name the device's folder");
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    const host::Arguments arguments(argv + std::min(argc, 1), argv + argc);
    const std::optional<int> status = host::runTool(arguments);
    return status ? *status : host::run(argv[0], arguments);
}
