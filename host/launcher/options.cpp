#include "host/launcher/options.h"

#include "host/base/version.h"

#include <algorithm>
#include <arpa/inet.h>
#include <charconv>
#include <cstdio>

namespace host {
namespace {

constexpr int mostSessions = 4096;
constexpr int longestPatience = 3600;
constexpr int usageStatus = 2;

struct Option {
    std::string_view word;
    const char* meaning;  ///< its value, what that may be, and its default in brackets
    /// False for a value that it cannot have.
    bool (*take)(Options& options, const std::string& value);
    /// The value, empty where it is not to be given.
    std::string (*give)(const Options& options);
};

std::string textOf(int number) { return std::to_string(number); }
std::string textOf(const std::optional<int>& number) { return number ? std::to_string(*number) : ""; }

template <auto field, int least, int most>
constexpr Option number(std::string_view word, const char* meaning) {
    return {word, meaning,
            [](Options& options, const std::string& value) {
                const std::optional<int> parsed = parseNumber(value, least, most);
                if (parsed) options.*field = *parsed;
                return parsed.has_value();
            },
            [](const Options& options) { return textOf(options.*field); }};
}

template <auto field, bool (*isGood)(const std::string& value)>
constexpr Option text(std::string_view word, const char* meaning) {
    return {word, meaning,
            [](Options& options, const std::string& value) {
                options.*field = value;
                return isGood(value);
            },
            [](const Options& options) { return options.*field; }};
}

bool isAddress(const std::string& text) {
    in6_addr parsed;
    return inet_pton(AF_INET, text.c_str(), &parsed) == 1 || inet_pton(AF_INET6, text.c_str(), &parsed) == 1;
}

bool isFolder(const std::string& text) { return !text.empty(); }

bool takePorts(Options& options, const std::string& value) {
    std::string_view rest = value;
    for (int& port : options.rawPorts) {
        const std::size_t comma = rest.find(',');
        const bool isLast = &port == &options.rawPorts.back();
        const std::optional<int> parsed = parseNumber(rest.substr(0, comma), 0, highestPort);
        if (isLast != (comma == rest.npos) || !parsed) return false;
        port = *parsed;
        rest.remove_prefix(isLast ? rest.size() : comma + 1);
    }
    return true;
}

std::string givePorts(const Options& options) {
    const auto& ports = options.rawPorts;
    return textOf(ports[0]) + "," + textOf(ports[1]) + "," + textOf(ports[2]);
}

constexpr Option table[] = {
    text<&Options::listen, isAddress>("--listen", "ADDR: the numeric address to listen on (127.0.0.1)"),
    number<&Options::telnetPort, 0, highestPort>(
        "--port", "N: the telnet port, 0 to 65535, where 0 is any free one (the stored one, at first 2323)"),
    {"--ports", "A,B,C: the three raw ports, likewise (9000,9001,9002)", takePorts, givePorts},
    number<&Options::maxSessions, 1, mostSessions>("--max-sessions", "N: sessions at once, 1 to 4096 (256)"),
    number<&Options::maxPerAddress, 1, mostSessions>("--max-per-address",
                                                     "N: sessions from one address at once, 1 to 4096 (192)"),
    number<&Options::peerPatience, 1, longestPatience>(
        "--peer-patience", "SECONDS: how long a client may take nothing of its output, 1 to 3600 (10)"),
    text<&Options::root, isFolder>("--root", "DIR: the folder that the device keeps everything in (.device)"),
    number<&Options::panelPort, 0, highestPort>("--panel",
                                                "PORT: the front panel's port, 1 to 65535, or 0 for no panel (8323)"),
    text<&Options::panelListen, isAddress>(
        "--panel-listen",
        "ADDR: the numeric address of the front panel (that of --listen if it is loopback, else 127.0.0.1)"),
    // From the supervisor to the launcher, which nobody else needs to know.
    number<&Options::fallbackPort, 0, highestPort>("--fallback-port", nullptr),
};

int printHelp(const char* program, const char* purpose) {
    std::printf("%s [OPTION VALUE]...: %s. Defaults are in brackets.\n", program, purpose);
    for (const Option& option : table)
        if (option.meaning != nullptr) std::printf("  %s %s\n", option.word.data(), option.meaning);
    std::puts("  --help : prints this help\n  --version : prints the version");
    return 0;
}

int reportMistake(const char* program, const char* word, const char* value, const Option* option) {
    if (option == nullptr || option->meaning == nullptr) {
        std::fprintf(stderr, "%s: %s is no option; --help lists them\n", program, word);
    } else if (value == nullptr) {
        std::fprintf(stderr, "%s: %s lacks its value. %s %s\n", program, word, word, option->meaning);
    } else {
        std::fprintf(stderr, "%s: %s cannot be \"%s\". %s %s\n", program, word, value, word, option->meaning);
    }
    return usageStatus;
}

/// 0 where every port was given once. A port that has a fallback was given by nobody.
int repeatedPort(const Options& options) {
    std::vector<int> ports(options.rawPorts.begin(), options.rawPorts.end());
    if (options.telnetPort && !options.fallbackPort) ports.push_back(*options.telnetPort);
    std::sort(ports.begin(), ports.end());
    ports.erase(ports.begin(), std::upper_bound(ports.begin(), ports.end(), 0));
    const auto repeated = std::adjacent_find(ports.begin(), ports.end());
    return repeated != ports.end() ? *repeated : 0;
}

}  // namespace

std::optional<int> Options::read(int argc, char** argv, const char* purpose) {
    for (int i = 1; i < argc; i += 2) {
        const std::string_view word = argv[i];
        if (word == "--help") return printHelp(argv[0], purpose);
        if (word == "--version") return printVersion();
        const auto* const option = std::ranges::find(table, word, &Option::word);
        const bool isKnown = option != std::end(table);
        if (!isKnown || i + 1 == argc || !option->take(*this, argv[i + 1]))
            return reportMistake(argv[0], argv[i], argv[i + 1], isKnown ? option : nullptr);
    }
    const int repeated = repeatedPort(*this);
    if (repeated == 0) return std::nullopt;
    std::fprintf(stderr, "%s: port %d is given twice; each of the four ports is another one\n", argv[0], repeated);
    return usageStatus;
}

std::vector<std::string> Options::arguments() const {
    std::vector<std::string> words;
    for (const Option& option : table)
        if (const std::string value = option.give(*this); !value.empty())
            words.insert(words.end(), {std::string(option.word), value});
    return words;
}

std::string Options::panelAddress() const {
    if (!panelListen.empty()) return panelListen;
    return isLoopback(listen) ? listen : "127.0.0.1";
}

bool isLoopback(const std::string& address) { return address.starts_with("127.") || address == "::1"; }

std::optional<int> parseNumber(std::string_view text, int least, int most) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || parsed != end || number < least || number > most) return std::nullopt;
    return number;
}

}  // namespace host
