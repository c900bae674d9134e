/// The four ports of the device, in the order in which the command line names them.
#pragma once

#include "host/launcher/telnet_stream.h"

#include <array>

namespace host {

struct ConsolePort {
    const char* programName;  ///< what the console is started as; a link below the device root
    TelnetStream::Kind kind;
};

inline constexpr std::array<ConsolePort, 4> consolePorts = {{
    {"/usr/bin/*cmdd", TelnetStream::Kind::negotiating},
    {"/usr/bin/*cmdd9000port", TelnetStream::Kind::raw},
    {"/usr/bin/*cmdd9001port", TelnetStream::Kind::raw},
    {"/usr/bin/*cmdd9002port", TelnetStream::Kind::raw},
}};

}  // namespace host
