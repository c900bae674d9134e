#include "host/daemons/daemons.h"

namespace host {

std::span<const DaemonKind> daemonKinds() {
    static constexpr DaemonKind kinds[] = {
        {"displayControl", makeDisplayControl},
        {"displayControlTelnetClient", makeDisplayControlTelnetClient},
        {"networkd", makeNetworkd},
        {"systemd", makeSystemd},
        {"intermcud", makeIntermcud},
        {"kxcmdd", makeKxcmdd},
        {"bruteForceAttacksd", makeBruteForceAttacksd},
        {"upgrade", makeUpgrade},
    };
    return kinds;
}

}  // namespace host
