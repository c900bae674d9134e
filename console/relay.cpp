#include "console/relay.h"

#include "console/bus_loop.h"
#include "console/ports.h"
#include "platform/event_bus.h"
#include "platform/lpc.h"
#include "text/text.h"

#include <cerrno>
#include <cstdio>
#include <sys/select.h>
#include <unistd.h>

namespace {

struct RelayPort {
    int reportedPort;
    const char* service;
    const char* method;
    lpc_handler handler;
};

void relayByte(const char* hexText) {
    std::putchar(static_cast<int>(parseHex(hexText) & 0xFF));
    std::fflush(stdout);
}

void relayText(const char* text) {
    std::fputs(text, stdout);
    std::fflush(stdout);
}

template <void (*relay)(const char*)>
void serve(lpc_request* request, void* /*userData*/) {
    relay(lpc_request_params(request));
    lpc_request_completed(request, nullptr);
}

constexpr RelayPort relayPorts[] = {
    {byteRelayPort, "hdbt12cmdd", "hdbt12cmdd", serve<relayByte>},
    {textRelayPort, "cmdd2zone1", "zone12cmdd", serve<relayText>},
};

const RelayPort* findRelay(int reportedPort) {
    for (const RelayPort& port : relayPorts) {
        if (port.reportedPort == reportedPort) return &port;
    }
    return nullptr;
}

bool waitForRequest(int descriptor) {
    fd_set input;
    FD_ZERO(&input);
    FD_SET(descriptor, &input);
    timeval limit{0, 30'000};
    return select(descriptor + 1, &input, nullptr, nullptr, &limit) > 0;
}

void onRelayedByte(void* /*userData*/, const char* payload) { relayByte(payload); }

}  // namespace

int RelayOutage::report(const char* call) {
    const bool isOutage = errno != EEXIST;
    if (isOutage && !isReported_) std::perror(call);
    isReported_ = isOutage;
    return -1;
}

bool hasRelay(int reportedPort) { return findRelay(reportedPort) != nullptr; }

int consoleLpcService(const SessionContext& session, RelayOutage& outage) {
    const RelayPort* relay = findRelay(session.reportedPort);
    if (relay == nullptr) return -1;
    lpc_service* service = lpc_service_create(relay->service, 0, relay->method, relay->handler, nullptr);
    if (service == nullptr) return outage.report("lpc_service_create error");
    const int descriptor = lpc_service_fileno(service);
    if (descriptor < 0) return outage.report("lpc_service_fileno");
    outage.end();
    for (;;) {
        if (waitForRequest(descriptor) && lpc_service_on_connect(service) != 0)
            return outage.report("lpc_service_on_connect");
    }
}

void* relayThread(void* sessionContext) {
    const auto& session = *static_cast<SessionContext*>(sessionContext);
    for (RelayOutage outage;; sleep(1)) consoleLpcService(session, outage);
}

int relayListener() {
    constexpr BusSubscription subscription{"recvHDBTSendTo900X", onRelayedByte, nullptr};
    return listenToBus({&subscription, 1}) ? 0 : -1;
}
