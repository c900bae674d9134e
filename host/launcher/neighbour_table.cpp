#include "host/launcher/neighbour_table.h"

#include <cstdlib>
#include <fstream>
#include <limits>
#include <sstream>

namespace host {
namespace {

constexpr unsigned completeFlag = 0x2;

}  // namespace

std::string hardwareAddressOf(const std::string& address) {
    std::ifstream table("/proc/net/arp");
    table.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        std::string neighbour, type, flags, hardwareAddress;
        fields >> neighbour >> type >> flags >> hardwareAddress;
        const bool isComplete = (std::strtoul(flags.c_str(), nullptr, 0) & completeFlag) != 0;
        if (neighbour == address && isComplete) return hardwareAddress;
    }
    return {};
}

}  // namespace host
