/// IPPort: the TCP port on which the device answers telnet.
#pragma once

#include "command/command.h"

/// IPPort 1..65535 | sta: stores the port and has the network service listen there.
void setTelnetPort(const Command& command);

/// "name port". The port may have been changed past the console, so the network service is told here as well.
void printTelnetPort(const char* rowName, const ChangedValue& value);
