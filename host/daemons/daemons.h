/// The daemons that the console talks to, each of which does visibly what the device's own does.
#pragma once

#include <memory>

namespace host {

class Daemon;

/// A daemon's state, alive while it runs.
using Service = std::shared_ptr<void>;

/// "displayControl": sends control strings over the device's serial lines.
Service makeSerialDisplay(Daemon& daemon);

/// "displayControlTelnetClient": sends control strings to the display's network address.
Service makeNetworkDisplay(Daemon& daemon);

/// "networkd": moves the telnet port and puts the address settings into effect.
Service makeNetwork(Daemon& daemon);

/// "systemd": keeps the SSH users and runs the firmware update.
Service makeSystem(Daemon& daemon);

/// "intermcud": passes words to the device's other processors.
Service makeInterMcu(Daemon& daemon);

/// "kxcmdd": takes diagnostic texts.
Service makeDiagnostics(Daemon& daemon);

/// "bruteForceAttacksd": locks clients out that fail to log in.
Service makeLockout(Daemon& daemon);

/// "upgrade": resets and restarts the device.
Service makeUpgrade(Daemon& daemon);

}  // namespace host
