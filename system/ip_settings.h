/// How the device comes by its address.
#pragma once

#include "command/command.h"

/// IPDHCP on | off | sta: by DHCP or by the static configuration.
void setDhcp(const Command& command);

/// "name on" for DHCP, "name off" for a static address, whatever the stored word's case.
void printDhcp(const char* rowName, const ChangedValue& value);

/// IPStatic address netmask gateway: the three are stored in one step, so that the network service sees one change.
void setStaticAddress(const Command& command);

/// One line in three pieces, in the order in which a change of all three is announced: "name address", " netmask" and
/// " gateway" with the line end.
void printStaticAddress(const char* rowName, const ChangedValue& value);
void printStaticNetmask(const char* rowName, const ChangedValue& value);
void printStaticGateway(const char* rowName, const ChangedValue& value);
