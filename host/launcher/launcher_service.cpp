#include "host/launcher/launcher_service.h"

#include "host/launcher/options.h"
#include "platform/lpc.h"

#include <cerrno>
#include <cstring>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr char serviceName[] = "telnetLauncher";
constexpr auto retryTime = 1s;

}  // namespace

LauncherService::LauncherService(EventLoop& loop, Ports& ports, Sessions& sessions)
    : loop_(loop), ports_(ports), sessions_(sessions), retry_(loop, [this] { offer(); }) {
    offer();
}

void LauncherService::offer() {
    const lpc_handler onListen = [](lpc_request* request, void* self) {
        const std::string reply = static_cast<LauncherService*>(self)->listen(lpc_request_params(request));
        lpc_request_completed(request, reply.c_str());
    };
    const lpc_handler onEndSessions = [](lpc_request* request, void* self) {
        static_cast<LauncherService*>(self)->sessions_.terminateAll();
        lpc_request_completed(request, "ok");
    };
    lpc_service* service = lpc_service_create(serviceName, 0, "listen", onListen, this);
    if (service == nullptr || lpc_service_create(serviceName, 0, "endSessions", onEndSessions, this) == nullptr)
        return retryLater();
    // All methods of a thread arrive over one descriptor.
    requests_ = std::make_unique<ReadWatch>(loop_, lpc_service_fileno(service), [this, service] {
        if (lpc_service_on_connect(service) != 0) retryLater();
    });
}

void LauncherService::retryLater() {
    requests_.reset();
    retry_.start(retryTime);
}

std::string LauncherService::listen(const char* port) {
    const std::optional<int> number = parseNumber(port, 1, highestPort);
    if (!number) return "fail not a port";
    if (ports_.moveTelnet(*number)) return "ok";
    return std::string("fail ") + std::strerror(errno) + "; still listening on " + std::to_string(ports_.telnetPort());
}

}  // namespace host
