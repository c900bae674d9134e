/// IPTimeout: after how many idle seconds a console is closed.
#pragma once

#include "command/command.h"

/// IPTimeout 0..3600 | never | sta. 0 and "never" are the same setting with different replies.
void setIdleTimeout(const Command& command);

/// "name never" for 0, else "name seconds".
void printIdleTimeout(const char* rowName, const ChangedValue& value);
