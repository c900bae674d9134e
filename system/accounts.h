/// The accounts with which operators log in: at most four, kept in the settings store as the array account.users. The
/// system service keeps an SSH user for each.
///
/// Names are unique whatever their case. "root" is built in: it is neither listed nor deleted. The first account is the
/// administrator, all others are guests.
#pragma once

#include "command/command.h"

/// IPAddUser name password | sta: adds a guest, whose password is made of letters and digits, or lists the accounts.
void addUser(const Command& command);

/// IPDelUser name.
void deleteUser(const Command& command);
