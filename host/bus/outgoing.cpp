#include "host/bus/outgoing.h"

#include "host/bus/connection.h"

namespace host {
namespace {

bool sendOver(Connection& connection, const Send& send) {
    if (!connection.open()) return false;
    const int result = send(connection.bus());
    if (result < 0) failBus(result);
    if (result >= 0 && connection.flush(Deadline(busLimit))) return true;
    // A message that was sent in part must not arrive later: its sender gets an error.
    connection.close();
    return false;
}

}  // namespace

bool sendFromThread(const Send& send) {
    thread_local Connection connection;
    const bool kept = connection.isOpen();
    if (sendOver(connection, send)) return true;
    return kept && isDisconnect(errno) && sendOver(connection, send);
}

}  // namespace host
