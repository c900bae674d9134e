#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/leaf_value.h"

namespace host {
namespace {

/// A method whose last text is all there is to see of it.
void offerState(Daemon& daemon, const char* method, const char* statusPath) {
    daemon.offer(method, [statusPath](const char* text) -> std::string {
        putStatusText(statusPath, text);
        return "ok";
    });
}

}  // namespace

Service makeInterMcu(Daemon& daemon) {
    offerState(daemon, "TrigCEC", "mcu.lastCec");
    offerState(daemon, "trigerUsb", "mcu.usbRoute");
    offerState(daemon, "debugMCU", "mcu.debug");
    return nullptr;
}

Service makeDiagnostics(Daemon& daemon) {
    offerState(daemon, "receiveFromUartString", "kx.lastText");
    return nullptr;
}

}  // namespace host
