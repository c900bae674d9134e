/// The device's four ports and the program names by which a connection to each starts its console. What starts the
/// consoles takes them from here, too.
#pragma once

struct ConsolePort {
    const char* programName;  ///< the asterisk is part of it
    int reportedPort;         ///< what the console takes for its port, wherever the device really listens
};

inline constexpr int byteRelayPort = 9001;
inline constexpr int textRelayPort = 9002;

/// The telnet port first. The others are raw: they negotiate no telnet options.
inline constexpr ConsolePort consolePorts[] = {
    {"/usr/bin/*cmdd", 23},
    {"/usr/bin/*cmdd9000port", 9000},
    {"/usr/bin/*cmdd9001port", byteRelayPort},
    {"/usr/bin/*cmdd9002port", textRelayPort},
};
