/// The production commands: a row's leaf is the key of its factory text.
#pragma once

#include "settings/command.h"

/// SQrnMac aa-bb-cc-dd-ee-ff: writes the MAC address, shows what was written and tells the status store. The address
/// is kept with colons and shown with dashes.
void setMacAddress(const Command& command);

/// RQrnMac.
void showMacAddress(const Command& command);

/// SQrnSN value: writes and shows what was written.
void setSerialNumber(const Command& command);

/// SQrnPID value: writes and echoes the value.
void setProductId(const Command& command);

/// RQrnSN, RQrnVID, RQrnPID.
void showFactoryText(const Command& command);
