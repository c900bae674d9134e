#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"

namespace host {

Service makeKxcmdd(Daemon& daemon) {
    offerState(daemon, "receiveFromUartString", "kx.lastText");
    return nullptr;
}

}  // namespace host
