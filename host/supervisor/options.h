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
    bool isTelnetPortGiven = false;  ///< otherwise the stored one holds

    static std::optional<DeviceOptions> parse(int argc, char** argv);

    /// The same as arguments.
    std::vector<std::string> arguments() const;
};

}  // namespace host
