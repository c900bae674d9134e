#include "host/supervisor/options.h"

#include <algorithm>
#include <string_view>

namespace host {
namespace {

bool take(DeviceOptions& options, std::string_view name, std::string_view value) {
    if (name == "--root") options.root = value;
    if (name == "--port") options.isTelnetPortGiven = true;
    return name == "--root" ? !value.empty() : options.launch.take(name, value);
}

}  // namespace

std::optional<DeviceOptions> DeviceOptions::parse(int argc, char** argv) {
    DeviceOptions options;
    if (argc % 2 == 0) return std::nullopt;
    for (int i = 1; i < argc; i += 2)
        if (!take(options, argv[i], argv[i + 1])) return std::nullopt;
    return options;
}

std::vector<std::string> DeviceOptions::arguments() const {
    std::vector<std::string> words = launch.arguments();
    if (!isTelnetPortGiven) {
        const auto port = std::find(words.begin(), words.end(), "--port");
        words.erase(port, port + 2);
    }
    words.insert(words.end(), {"--root", root});
    return words;
}

}  // namespace host
