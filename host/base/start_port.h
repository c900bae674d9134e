/// What a device root remembers of the telnet ports of earlier starts, apart from its settings.
#pragma once

namespace host {

struct StartPorts {
    int last = 0;   ///< the port of the last start; 0 before the first
    int given = 0;  ///< the port that a command line gave last, which a reset of the settings brings back; 0 for none
};

StartPorts readStartPorts();

/// False with errno set when it cannot be kept.
bool writeStartPorts(const StartPorts& ports);

}  // namespace host
