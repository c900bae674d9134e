#include "host/base/start_port.h"

#include "host/base/atomic_file.h"
#include "host/base/device_root.h"

#include <sstream>

namespace host {
namespace {

std::string path() { return inRoot("start-ports"); }

}  // namespace

StartPorts readStartPorts() {
    StartPorts ports;
    std::istringstream(readFile(path()).value_or("")) >> ports.last >> ports.given;
    return ports;
}

bool writeStartPorts(const StartPorts& ports) {
    const std::string text = std::to_string(ports.last) + " " + std::to_string(ports.given) + "\n";
    return readFile(path()) == text || replaceFile(path(), text);
}

}  // namespace host
