/// The method that both display-control daemons offer.
#pragma once

namespace host {

class Daemon;
class Transmitter;

/// Offers "SetCmdOn", which hands its requests to `transmitter`.
void offerTriggers(Daemon& daemon, Transmitter& transmitter);

}  // namespace host
