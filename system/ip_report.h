/// IPCFG: how the device is reached.
#pragma once

#include "command/command.h"

/// Prints address, netmask, gateway and telnet port. While a link is up these are the addresses in effect, except that
/// a static configuration whose gateway is not in effect yet shows what is configured; without any link a static
/// configuration shows what is configured, and DHCP has no addresses. Prints nothing when it cannot tell.
void reportIpConfiguration(const Command& command);
