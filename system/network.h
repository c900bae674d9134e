/// How the device is reached: its addresses, its telnet port, and for how long and for whom a console is open.
#pragma once

#include "command/family.h"
#include "settings/switch_setting.h"

/// IPCFG: prints address, netmask, gateway and telnet port. While a link is up these are the addresses in effect,
/// except that a static configuration whose gateway is not in effect yet shows what is configured; without any link a
/// static configuration shows what is configured, and DHCP has no addresses. Prints nothing when the link cannot be
/// read.
void reportIpConfiguration(const Command& command);

/// IPDHCP on | off | sta: by DHCP or by the static configuration, whatever the case of the stored word.
void setDhcp(const Command& command);
void printDhcp(const Change& change);

inline constexpr Word dhcpWords[] = {{"on", "DHCP"}, {"off", "STATIC"}};
inline constexpr Family dhcp{.action = setDhcp, .printer = printDhcp, .kind = LeafKind::text, .words = dhcpWords};

/// IPStatic address netmask gateway: the three are stored in one step, so that the network service sees one change.
void setStaticAddress(const Command& command);

/// One line in three pieces, in the order in which a change of all three is announced: "name address", " netmask" and
/// " gateway" with the line end.
void printStaticAddress(const Change& change);
void printStaticNetmask(const Change& change);
void printStaticGateway(const Change& change);

template <Printer piece>
inline constexpr Family staticAddress{.action = setStaticAddress, .printer = piece, .kind = LeafKind::text};

/// IPPort 1..65535 | sta: stores the port on which the device answers telnet and has the network service listen there.
void setTelnetPort(const Command& command);

/// "name port". Another program may have changed the port, so the network service is called here as well.
void printTelnetPort(const Change& change);

inline constexpr Family telnetPort{
    .action = setTelnetPort, .printer = printTelnetPort, .kind = LeafKind::number, .range = {1, 65535}};

/// IPTimeout 0..3600 | never | sta: after how many idle seconds a console is closed. 0 and "never" are the same setting
/// with different replies.
void setIdleTimeout(const Command& command);

/// "name never" for 0, else "name seconds".
void printIdleTimeout(const Change& change);

inline constexpr Family idleTimeout{
    .action = setIdleTimeout, .printer = printIdleTimeout, .kind = LeafKind::number, .range = {0, 3600}};

/// IPLogin on | off | sta: whether a console asks for a name and a password. With broadcast off a change ends every
/// console of the device, this one included, after its reply: each new connection starts with the new mode.
void setLoginMode(const Command& command);

inline constexpr Family loginMode{
    .action = setLoginMode, .printer = printSwitch, .kind = LeafKind::truthValue, .words = straightWords};
