#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"

namespace host {

Service makeIntermcud(Daemon& daemon) {
    offerState(daemon, "TrigCEC", "mcu.lastCec");
    offerState(daemon, "trigerUsb", "mcu.usbRoute");
    offerState(daemon, "debugMCU", "mcu.debug");
    return nullptr;
}

Service makeKxcmdd(Daemon& daemon) {
    offerState(daemon, "receiveFromUartString", "kx.lastText");
    return nullptr;
}

}  // namespace host
