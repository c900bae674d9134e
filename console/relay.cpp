#include "console/relay.h"

#include "console/bus_loop.h"
#include "platform/event_bus.h"
#include "platform/lpc.h"
#include "text/text.h"

#include <cstdio>
#include <sys/select.h>

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
    {9001, "hdbt12cmdd", "hdbt12cmdd", serve<relayByte>},
    {9002, "cmdd2zone1", "zone12cmdd", serve<relayText>},
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

int failWith(const char* call) {
    std::perror(call);
    return -1;
}

void onRelayedByte(void* /*userData*/, const char* payload) { relayByte(payload); }

}  // namespace

int consoleLpcService(const SessionContext& session) {
    const RelayPort* relay = findRelay(session.reportedPort);
    if (relay == nullptr) return -1;
    lpc_service* service = lpc_service_create(relay->service, 0, relay->method, relay->handler, nullptr);
    if (service == nullptr) return failWith("lpc_service_create error");
    const int descriptor = lpc_service_fileno(service);
    if (descriptor < 0) return failWith("lpc_service_fileno");
    for (;;) {
        if (waitForRequest(descriptor) && lpc_service_on_connect(service) != 0)
            return failWith("lpc_service_on_connect");
    }
}

void* relayThread(void* sessionContext) {
    consoleLpcService(*static_cast<SessionContext*>(sessionContext));
    return nullptr;
}

int relayListener() {
    constexpr BusSubscription subscription{"recvHDBTSendTo900X", onRelayedByte, nullptr};
    return listenToBus({&subscription, 1}) ? 0 : -1;
}
