/// The login dialogue's steps. The entry routine does not start it; a session in login mode would be built from these.
#pragma once

#include <cstddef>

enum LoginState { expectingUserName, expectingPassword, loggedIn };

/// Reads an answer from standard input: what was read last when `quietTime` milliseconds have passed without more, with
/// a NUL behind it. Takes the terminal out of canonical mode. Returns the number of bytes, at most `size` - 1; 0 when
/// nothing came. A failing terminal or wait ends the process with status 1.
int loginReadInput(char* buffer, std::size_t size, int quietTime = 10'000);

/// True when the lockout list holds a locked entry for `clientId`; false for null and when the list cannot be read.
bool loginIsLocked(const char* clientId);

/// Takes one answer. Returns 1 when the state was already loggedIn; 0 otherwise, and the state itself when the accounts
/// cannot be read. Each user name counts as an attempt.
int loginStep(LoginState& state, int& attempts, const char* input);

/// Reports to the lockout service how a login ended. False when the client is not known or the call fails.
bool loginReport(bool success);
