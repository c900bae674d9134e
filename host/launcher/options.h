/// The command line of a device. The supervisor reads it and passes it on to the launcher.
#pragma once

#include "console/ports.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct Options {
    static constexpr int defaultTelnetPort = 2323;

    std::string listen = "127.0.0.1";  ///< a numeric address
    std::optional<int> telnetPort;     ///< none: the stored one; here and below a port 0 is any free one
    std::array<int, 3> rawPorts = {consolePorts[1].reportedPort, consolePorts[2].reportedPort,
                                   consolePorts[3].reportedPort};
    int maxSessions = 256;
    int maxPerAddress = 192;
    int peerPatience = 10;            ///< seconds
    std::optional<int> fallbackPort;  ///< for a telnet port that cannot be had, before any free one
    std::string root = ".device";
    int panelPort = 8323;     ///< 0 for no panel
    std::string panelListen;  ///< empty: the loopback address that the consoles are on, or else 127.0.0.1

    /// Reads the command line. What is returned is the status to exit with at once: after --help, which says the
    /// program's `purpose`, after --version, and after a mistake, which standard error names.
    std::optional<int> read(int argc, char** argv, const char* purpose);

    /// The same as arguments.
    std::vector<std::string> arguments() const;

    std::string panelAddress() const;
};

/// Whether nothing but this machine reaches the numeric address.
bool isLoopback(const std::string& address);

/// A number of decimal digits in the range, or none.
std::optional<int> parseNumber(std::string_view text, int least, int most);

inline constexpr int highestPort = 65535;

}  // namespace host
