/// The machine's table of the network neighbours it has spoken with.
#pragma once

#include <string>

namespace host {

/// The hardware address of the neighbour with that IPv4 address, as the kernel prints it; empty when it is not known.
std::string hardwareAddressOf(const std::string& address);

}  // namespace host
