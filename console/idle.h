/// Ends a session that has been idle for the configured time.
#pragma once

/// The leaf that holds the configured time-out.
inline constexpr char timeoutLeaf[] = R"({"network":{"telnet":{"tcpipTimeout":%d}}})";

/// Thread body: kills the process when the clock of the SessionContext has run out. Never returns.
void* idleThread(void* sessionContext);

/// The same with the alternative loop.
void* idleThreadAlt(void* sessionContext);
