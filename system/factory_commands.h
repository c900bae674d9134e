/// The production commands: a row's leaf is the key of its factory text.
#pragma once

#include "command/family.h"

/// SQrnMac aa-bb-cc-dd-ee-ff: writes the MAC address, shows what was written and tells the status store. The address
/// is kept with colons and shown with dashes.
void writeMacAddress(const Command& command);

/// RQrnMac.
void reportMacAddress(const Command& command);

/// SQrnSN value: writes and shows what was written.
void writeSerialNumber(const Command& command);

/// SQrnPID value: writes and echoes the value.
void writeProductId(const Command& command);

/// RQrnSN, RQrnVID, RQrnPID.
void reportFactoryText(const Command& command);

template <Action action>
inline constexpr Family factoryData{.action = action, .kind = LeafKind::factoryKey};
