/// What the launcher is told on its command line, by hand or by the device.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct LaunchOptions {
    std::string listen = "127.0.0.1";  ///< a numeric address
    int telnetPort = 2323;             ///< a port 0 is any free one
    std::array<int, 3> rawPorts = {9000, 9001, 9002};
    int maxSessions = 256;
    int maxPerAddress = 192;
    int peerPatience = 10;  ///< seconds
    static constexpr int noFallback = -1;
    int fallbackPort = noFallback;  ///< for a telnet port that cannot be had, before any free one

    /// Takes "--listen ADDR", "--port N", "--ports A,B,C", "--max-sessions N", "--max-per-address N" or
    /// "--peer-patience SECONDS"; false for another name or a value that it cannot have.
    bool take(std::string_view name, std::string_view value);

    /// The same as arguments.
    std::vector<std::string> arguments() const;
};

struct OptionText {
    std::string_view word;
    const char* meaning;  ///< its value, what that may be, and in brackets what holds without it
};

inline constexpr OptionText launchOptionTexts[] = {
    {"--listen", "ADDR: the numeric address to listen on (127.0.0.1)"},
    {"--port", "N: the telnet port, 0 to 65535, where 0 is any free one (the stored one, at first 2323)"},
    {"--ports", "A,B,C: the three raw ports, likewise (9000,9001,9002)"},
    {"--max-sessions", "N: sessions at once, 1 to 4096 (256)"},
    {"--max-per-address", "N: sessions from one address at once, 1 to 4096 (192)"},
    {"--peer-patience", "SECONDS: how long a client may take nothing of its output, 1 to 3600 (10)"},
};

/// A number of decimal digits in the range, or none.
std::optional<int> parseNumber(std::string_view text, int least, int most);

inline constexpr int highestPort = 65535;

}  // namespace host
