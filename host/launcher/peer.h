/// A client of the launcher, and what is done with its socket directly.
#pragma once

#include "host/base/unique_fd.h"

#include <string>
#include <string_view>

namespace host {

struct Peer {
    UniqueFd socket;      ///< non-blocking
    std::string address;  ///< numeric
    int port;             ///< the listener's
};

/// Urgent bytes in their place, small packets at once, little buffered for a slow peer, and an error within 20 s when
/// the peer has vanished.
void preparePeerSocket(int peer);

/// Sends a short text if the peer takes it at once, and ends the output.
void sendIfTaken(int peer, std::string_view text);

/// Throws away what has arrived. False when the peer has closed or failed.
bool discardInput(int peer);

}  // namespace host
