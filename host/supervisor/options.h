/// What the device is told on its command line.
#pragma once

#include "host/launcher/launch_options.h"

#include <optional>
#include <string>
#include <vector>

namespace host {

struct DeviceOptions {
    std::string root = ".device";
    LaunchOptions launch;
    int panelPort = 8323;            ///< 0 for no panel
    std::string panelListen;         ///< empty: the loopback address that the consoles are on, or else 127.0.0.1
    bool isTelnetPortGiven = false;  ///< otherwise the stored one holds

    /// Reads the command line. What is returned is the status to exit with at once: after --help or --version, or
    /// after a mistake, which standard error names.
    std::optional<int> read(int argc, char** argv);

    /// The same as arguments.
    std::vector<std::string> arguments() const;

    std::string panelAddress() const;
};

/// Whether nothing but this machine reaches the numeric address.
bool isLoopback(const std::string& address);

}  // namespace host
