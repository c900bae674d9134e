#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/leaf_value.h"

namespace host {
namespace {

/// Of this method the last text is all there is to see: in the status store, at `statusPath`.
void offerState(Daemon& daemon, const char* method, const char* statusPath) {
    daemon.offer(method, [statusPath](const char* text) -> std::string {
        putStatusText(statusPath, text);
        return "ok";
    });
}

}  // namespace

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
