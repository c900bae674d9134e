#include "host/supervisor/options.h"

#include <algorithm>
#include <string_view>

namespace host {
namespace {

bool takePanelPort(std::string_view value, int& port) {
    const std::optional<int> parsed = parseNumber(value, 0, highestPort);
    port = parsed.value_or(port);
    return parsed.has_value();
}

bool takePanelAddress(std::string_view value, std::string& address) {
    LaunchOptions reader;
    const bool isAddress = reader.take("--listen", value);
    address = reader.listen;
    return isAddress;
}

bool take(DeviceOptions& options, std::string_view name, std::string_view value) {
    if (name == "--root") options.root = value;
    if (name == "--port") options.isTelnetPortGiven = true;
    if (name == "--panel") return takePanelPort(value, options.panelPort);
    if (name == "--panel-listen") return takePanelAddress(value, options.panelListen);
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
    words.insert(words.end(), {"--root", root, "--panel", std::to_string(panelPort)});
    if (!panelListen.empty()) words.insert(words.end(), {"--panel-listen", panelListen});
    return words;
}

std::string DeviceOptions::panelAddress() const {
    if (!panelListen.empty()) return panelListen;
    return isLoopback(launch.listen) ? launch.listen : "127.0.0.1";
}

bool isLoopback(const std::string& address) { return address.starts_with("127.") || address == "::1"; }

}  // namespace host
