/// Factory data and the commands with which production writes it. A row's leaf is the key of its text.
#pragma once

#include "command/family.h"
#include "text/owned_text.h"

/// The text under `key`; null where there is none.
OwnedText readFactoryText(const char* key);

/// Has the factory tool write `value` under `key`; the value reaches it as one argument whatever it holds. Returns
/// false with errno set when the line does not fit or the tool fails.
bool writeFactoryText(const char* key, const char* value);

/// SQrnMac aa-bb-cc-dd-ee-ff: writes the MAC address, shows what was written and puts it into the status store. The
/// address is kept with colons and shown with dashes.
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
