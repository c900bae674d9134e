#include "host/launcher/launch_options.h"

#include <arpa/inet.h>
#include <charconv>

namespace host {
namespace {

constexpr int mostSessions = 4096;
constexpr int longestPatience = 3600;

bool takeNumber(std::string_view text, int least, int most, int& number) {
    const std::optional<int> parsed = parseNumber(text, least, most);
    number = parsed.value_or(number);
    return parsed.has_value();
}

bool takeAddress(const std::string& text, std::string& address) {
    in6_addr parsed;
    if (inet_pton(AF_INET, text.c_str(), &parsed) != 1 && inet_pton(AF_INET6, text.c_str(), &parsed) != 1) return false;
    address = text;
    return true;
}

bool takePorts(std::string_view text, std::array<int, 3>& ports) {
    for (int& port : ports) {
        const std::size_t comma = text.find(',');
        const bool isLast = &port == &ports.back();
        if (isLast != (comma == text.npos) || !takeNumber(text.substr(0, comma), 0, highestPort, port)) return false;
        text.remove_prefix(isLast ? text.size() : comma + 1);
    }
    return true;
}

}  // namespace

std::optional<int> parseNumber(std::string_view text, int least, int most) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || parsed != end || number < least || number > most) return std::nullopt;
    return number;
}

bool LaunchOptions::take(std::string_view name, std::string_view value) {
    if (name == "--listen") return takeAddress(std::string(value), listen);
    if (name == "--port") return takeNumber(value, 0, highestPort, telnetPort);
    if (name == "--ports") return takePorts(value, rawPorts);
    if (name == "--max-sessions") return takeNumber(value, 1, mostSessions, maxSessions);
    if (name == "--max-per-address") return takeNumber(value, 1, mostSessions, maxPerAddress);
    if (name == "--peer-patience") return takeNumber(value, 1, longestPatience, peerPatience);
    if (name == "--fallback-port") return takeNumber(value, 0, highestPort, fallbackPort);
    return false;
}

std::vector<std::string> LaunchOptions::arguments() const {
    const auto text = [](int number) { return std::to_string(number); };
    return {"--listen",
            listen,
            "--port",
            text(telnetPort),
            "--ports",
            text(rawPorts[0]) + "," + text(rawPorts[1]) + "," + text(rawPorts[2]),
            "--max-sessions",
            text(maxSessions),
            "--max-per-address",
            text(maxPerAddress),
            "--peer-patience",
            text(peerPatience)};
}

}  // namespace host
