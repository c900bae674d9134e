#include "host/launcher/subnegotiation_filter.h"

#include "host/launcher/telnet_bytes.h"

namespace host {

std::string SubnegotiationFilter::pass(std::string_view bytes) {
    std::string passed;
    passed.reserve(bytes.size() + 1);
    for (const char byte : bytes) take(byte, passed);
    return passed;
}

void SubnegotiationFilter::take(char byte, std::string& passed) {
    switch (state_) {
        case State::data:
            if (byte == telnetIac) {
                state_ = State::command;
            } else {
                passed += byte;
            }
            break;
        case State::command:
            state_ = byte == telnetSb ? State::subnegotiation : State::data;
            if (byte != telnetSb) passed.append({telnetIac, byte});
            break;
        case State::subnegotiation:
            if (byte == telnetIac) state_ = State::subnegotiationCommand;
            break;
        case State::subnegotiationCommand:
            state_ = byte == telnetSe ? State::data : State::subnegotiation;
            break;
    }
}

}  // namespace host
