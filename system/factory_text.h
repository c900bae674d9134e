/// What production wrote into the device.
#pragma once

#include "text/owned_text.h"

/// The text under `key`; null where there is none.
OwnedText readFactoryText(const char* key);

/// Has the factory tool write `value` under `key`; the value reaches it as one argument whatever it holds. Returns
/// false with errno set when the line does not fit or the tool fails.
bool writeFactoryText(const char* key, const char* value);
