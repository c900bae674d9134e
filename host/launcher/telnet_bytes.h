/// The telnet command bytes that the launcher's own code looks at, as the characters they arrive as.
#pragma once

#include <cstddef>  // libtelnet.h uses size_t without it
#include <libtelnet.h>

namespace host {

inline constexpr char telnetIac = static_cast<char>(TELNET_IAC);
inline constexpr char telnetSb = static_cast<char>(TELNET_SB);
inline constexpr char telnetSe = static_cast<char>(TELNET_SE);

}  // namespace host
