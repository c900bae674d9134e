#include "host/bus/bus_daemon.h"

#include "host/base/device_root.h"
#include "host/bus/bus_configuration.h"

#include <fstream>

namespace host {

std::vector<std::string> busCommand(int readyDescriptor) {
    const std::string path = inRoot("bus.conf");
    if (!(std::ofstream(path) << busConfiguration << std::flush)) return {};
    return {"/usr/bin/dbus-daemon", "--nofork", "--nopidfile", "--config-file=" + path,
            "--print-address=" + std::to_string(readyDescriptor)};
}

}  // namespace host
