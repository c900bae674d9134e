/// A line, typed at a console on a new device in memory.
#pragma once

#include <string>
#include <vector>

struct Played {
    std::string reply;               ///< all that the console wrote but the echo
    std::vector<std::string> calls;  ///< "SERVICE METHOD TEXT" for each daemon that was asked
    std::vector<std::string> shell;  ///< the tools that were run
};

/// What the fake platform holds afterwards is a new device with one guest more.
void makeNewDevice(bool broadcast);

/// Starts the console's event listener, so that changes are shown with broadcast on. Call it once.
void startListener();

/// Types the line and its CR, and waits until all that follows from it has been printed.
Played play(const std::string& line, bool broadcast);
