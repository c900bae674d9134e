/// The daemons that the console talks to, each of which does visibly what the device's own does.
#pragma once

#include <memory>
#include <string_view>

namespace host {

class Daemon;

/// A daemon's state, alive while it runs.
using Service = std::shared_ptr<void>;

/// Sends control strings over the device's serial lines, and to the display's network address.
Service makeDisplayControl(Daemon& daemon);
Service makeDisplayControlTelnetClient(Daemon& daemon);

/// Moves the telnet port and puts the address settings into effect.
Service makeNetworkd(Daemon& daemon);

/// Answers for the SSH users and runs the firmware update.
Service makeSystemd(Daemon& daemon);

/// Pass words to the device's other processors.
Service makeIntermcud(Daemon& daemon);
Service makeKxcmdd(Daemon& daemon);

/// Locks clients out that fail to log in.
Service makeBruteForceAttacksd(Daemon& daemon);

/// Resets and restarts the device.
Service makeUpgrade(Daemon& daemon);

struct DaemonKind {
    std::string_view name;
    Service (*make)(Daemon& daemon);
};

/// All of them: whoever is in this list is started and kept running.
inline constexpr DaemonKind daemonKinds[] = {
    {"displayControl", makeDisplayControl},
    {"displayControlTelnetClient", makeDisplayControlTelnetClient},
    {"networkd", makeNetworkd},
    {"systemd", makeSystemd},
    {"intermcud", makeIntermcud},
    {"kxcmdd", makeKxcmdd},
    {"bruteForceAttacksd", makeBruteForceAttacksd},
    {"upgrade", makeUpgrade},
};

}  // namespace host
