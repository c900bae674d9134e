#include "host/bus/connection.h"

#include "host/base/time_span.h"
#include "host/base/unique_fd.h"
#include "host/base/unix_address.h"
#include "host/bus/bus_names.h"

#include <sys/socket.h>
#include <unistd.h>

#if defined(__SANITIZE_THREAD__)
/// When a hash table grows, sd-bus draws a key into a static buffer, which its threads share without a lock, and copies
/// it into the table. Any mixture will do as a key.
extern "C" const char* __tsan_default_suppressions();
const char* __tsan_default_suppressions() { return "race:getrandom"; }
#endif

namespace host {
namespace {

/// Waits for room in the bus's backlog, where a non-blocking descriptor would fail when many connect at once.
bool connectBlocking(int socket, const UnixAddress& address) {
    const Deadline deadline(busLimit);
    while (!deadline.isOver()) {
        const timeval limit = toTimeval(deadline.left());
        setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
        if (connect(socket, address.get(), address.size()) == 0) return true;
        if (errno != EINTR) return errno == EAGAIN ? failWith(-ETIMEDOUT) : false;
    }
    return failWith(-ETIMEDOUT);
}

UniqueFd connectToBus() {
    UniqueFd socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (socket && !connectBlocking(socket.get(), UnixAddress(busPath()))) socket.reset();
    return socket;
}

/// Hands the descriptor to sd-bus, which owns it from then on, success or not.
int startBus(sd_bus* bus, int descriptor) {
    int result = sd_bus_set_fd(bus, descriptor, descriptor);
    if (result >= 0) result = sd_bus_set_bus_client(bus, true);
    if (result >= 0) result = sd_bus_set_method_call_timeout(bus, std::chrono::microseconds(busLimit).count());
    if (result >= 0) result = sd_bus_start(bus);
    return result;
}

bool sendOver(Connection& connection, const Send& send) {
    if (!connection.open()) return false;
    const int result = send(connection.bus());
    if (result < 0) failWith(result);
    if (result >= 0 && connection.flush(Deadline(busLimit))) return true;
    // A message that was sent in part must not arrive later: its sender gets an error.
    connection.close();
    return false;
}

}  // namespace

bool Connection::open() {
    if (isOpen()) return true;
    close();
    UniqueFd socket = connectToBus();
    if (!socket) return false;
    int result = sd_bus_new(&bus_);
    if (result < 0) return failWith(result);
    descriptor_ = socket.release();
    result = startBus(bus_, descriptor_);
    if (result >= 0) return true;
    close();
    return failWith(result);
}

bool Connection::isOpen() const { return bus_ != nullptr && sd_bus_is_open(bus_) > 0; }

void Connection::close() {
    const int error = errno;
    bus_ = sd_bus_close_unref(bus_);
    descriptor_ = -1;
    errno = error;
}

bool Connection::flush(Deadline deadline) {
    return processUntil(bus_, deadline, [this] {
        uint64_t waiting = 0;
        return sd_bus_is_ready(bus_) > 0 && sd_bus_get_n_queued_write(bus_, &waiting) >= 0 && waiting == 0;
    });
}

bool sendFromThread(const Send& send) {
    thread_local Connection connection;
    const bool kept = connection.isOpen();
    if (sendOver(connection, send)) return true;
    return kept && isDisconnect(errno) && sendOver(connection, send);
}

}  // namespace host
