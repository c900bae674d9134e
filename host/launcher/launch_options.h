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

inline constexpr char launchUsage[] =
    "[--listen ADDR] [--port N] [--ports A,B,C] [--max-sessions N] [--max-per-address N] [--peer-patience SECONDS]";

/// A number of decimal digits in the range, or none.
std::optional<int> parseNumber(std::string_view text, int least, int most);

inline constexpr int highestPort = 65535;

}  // namespace host
