#include "host/supervisor/options.h"

#include "host/base/version.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
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

constexpr OptionText ownOptionTexts[] = {
    {"--root", "DIR: the folder that the device keeps everything in (.device)"},
    {"--panel", "PORT: the front panel's port, 1 to 65535, or 0 for no panel (8323)"},
    {"--panel-listen", "ADDR: the numeric address of the front panel (that of --listen where it is a loopback)"},
    {"--help", ": says this"},
    {"--version", ": says the version"},
};

constexpr int usageStatus = 2;

int printHelp(const char* program) {
    std::printf("%s [OPTION VALUE]...: runs a device until Ctrl-C or SIGTERM. In brackets what holds without it.\n",
                program);
    const auto print = [](const OptionText& option) { std::printf("  %s %s\n", option.word.data(), option.meaning); };
    std::for_each(std::begin(launchOptionTexts), std::end(launchOptionTexts), print);
    std::for_each(std::begin(ownOptionTexts), std::end(ownOptionTexts), print);
    return 0;
}

int printVersion(const char* program) {
    std::printf("%s %s\n", program, version);
    return 0;
}

const OptionText* findText(std::string_view word) {
    for (const OptionText& option : launchOptionTexts)
        if (option.word == word) return &option;
    for (const OptionText& option : ownOptionTexts)
        if (option.word == word) return &option;
    return nullptr;
}

int reportMistake(const char* program, const char* word, const char* value) {
    const OptionText* const option = findText(word);
    if (option == nullptr) {
        std::fprintf(stderr, "%s: %s is no option; --help lists them\n", program, word);
    } else if (value == nullptr) {
        std::fprintf(stderr, "%s: %s lacks its value. %s %s\n", program, word, word, option->meaning);
    } else {
        std::fprintf(stderr, "%s: %s cannot be \"%s\". %s %s\n", program, word, value, word, option->meaning);
    }
    return usageStatus;
}

/// 0 where every port was given once.
int repeatedPort(const DeviceOptions& options) {
    std::vector<int> ports(options.launch.rawPorts.begin(), options.launch.rawPorts.end());
    if (options.isTelnetPortGiven) ports.push_back(options.launch.telnetPort);
    std::sort(ports.begin(), ports.end());
    ports.erase(ports.begin(), std::upper_bound(ports.begin(), ports.end(), 0));
    const auto repeated = std::adjacent_find(ports.begin(), ports.end());
    return repeated != ports.end() ? *repeated : 0;
}

}  // namespace

std::optional<int> DeviceOptions::read(int argc, char** argv) {
    for (int i = 1; i < argc; i += 2) {
        const std::string_view word = argv[i];
        if (word == "--help") return printHelp(argv[0]);
        if (word == "--version") return printVersion(argv[0]);
        if (i + 1 == argc || !take(*this, word, argv[i + 1])) return reportMistake(argv[0], argv[i], argv[i + 1]);
    }
    const int repeated = repeatedPort(*this);
    if (repeated == 0) return std::nullopt;
    std::fprintf(stderr, "%s: port %d is given twice; each of the four ports is another one\n", argv[0], repeated);
    return usageStatus;
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
