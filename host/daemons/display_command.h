/// What the display-control daemons have in common.
#pragma once

#include "host/daemons/daemons.h"
#include "host/daemons/transmitter.h"

#include <memory>

namespace host {

class Daemon;

/// Offers "SetCmdOn" and sends what it brings over `line`, at the pace of a Transmitter, while the service lives.
Service controlDisplay(Daemon& daemon, std::unique_ptr<DisplayLine> line, const TransmitterNames& names);

}  // namespace host
