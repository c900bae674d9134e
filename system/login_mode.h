/// IPLogin: whether a console asks for a name and a password.
#pragma once

#include "command/command.h"

/// IPLogin on | off | sta. With broadcast off a change ends every console of the device, this one included, after its
/// reply: each new connection starts with the new mode.
void setLoginMode(const Command& command);
