#include "host/daemons/daemon.h"

#include "host/base/note.h"
#include "host/base/readiness.h"
#include "host/bus/bus_extensions.h"
#include "platform/event_bus.h"
#include "platform/lpc.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace host {

Daemon::Daemon(std::string name) : name_(std::move(name)) {}

Daemon::~Daemon() { eventbus_close(events_); }

void Daemon::failIf(bool failed, const char* what) {
    if (!failed) return;
    note("%s: %s", what, std::strerror(errno));
    std::fprintf(stderr, "%s: %s: %s\n", name_.c_str(), what, std::strerror(errno));
    failed_ = true;
    loop_.stop();
}

void Daemon::offer(const char* method, RequestHandler handler) {
    const lpc_handler onRequest = [](lpc_request* request, void* userData) {
        const auto* offer = static_cast<const Offer*>(userData);
        const char* text = lpc_request_params(request);
        note("call %s %s %s", offer->daemon->name_.c_str(), offer->method, text);
        lpc_request_completed(request, offer->handler(text).c_str());
    };
    Offer& offer = offers_.emplace_back(Offer{this, method, std::move(handler)});
    lpc_service* service = lpc_service_create(name_.c_str(), 0, method, onRequest, &offer);
    failIf(service == nullptr, "lpc_service_create");
    // All methods of a thread arrive over one descriptor.
    if (service == nullptr || offers_.size() > 1) return;
    watches_.emplace_back(loop_, lpc_service_fileno(service),
                          [this, service] { failIf(lpc_service_on_connect(service) != 0, "lpc_service_on_connect"); });
}

bool Daemon::openEvents() {
    if (events_ != nullptr) return true;
    events_ = openDaemonEvents();
    failIf(events_ == nullptr, "eventbus_open");
    if (events_ == nullptr) return false;
    watches_.emplace_back(loop_, eventbus_fileno(events_),
                          [this] { failIf(eventbus_on_data_available(events_) != 0, "eventbus_on_data_available"); });
    return true;
}

void Daemon::subscribe(const char* event, EventHandler handler) {
    if (!openEvents()) return;
    const auto onEvent = [](void* userData, const char* payload) { (*static_cast<EventHandler*>(userData))(payload); };
    failIf(eventbus_subscribe(events_, event, onEvent, &handlers_.emplace_back(std::move(handler))) != 0, event);
}

int Daemon::run() {
    if (failed_) return 1;
    const SignalWatch onTerminate(loop_, SIGTERM, [this] { loop_.stop(); });
    announceReady(name_);
    loop_.run();
    return failed_ ? 1 : 0;
}

}  // namespace host
