#include "host/base/atomic_file.h"
#include "host/bus/bus_names.h"
#include "host/bus/call_log.h"
#include "host/bus/connection.h"
#include "host/bus/text_message.h"
#include "platform/lpc.h"

#include <algorithm>
#include <list>
#include <string>

using host::failWith;
using host::statusOf;

struct lpc_service {
    std::string name;
    std::string method;
    lpc_handler handler;
    void* userData;
};

struct lpc_request {
    sd_bus_message* call;
    const char* text;
};

namespace {

/// What a thread offers: all over one connection.
struct Offers {
    host::Connection connection;
    std::list<lpc_service> services;  // the bus keeps pointers to them
};

Offers& threadOffers() {
    thread_local Offers offers;
    return offers;
}

/// All methods of a service share its path; each takes its own calls and leaves the others'.
int onCall(sd_bus_message* call, void* userData, sd_bus_error* /*error*/) {
    const auto* service = static_cast<const lpc_service*>(userData);
    if (sd_bus_message_is_method_call(call, host::callInterface, service->method.c_str()) <= 0) return 0;
    const char* text = host::readText(call);
    if (text == nullptr) return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "not a text");
    host::appendLine(host::callLogPath(), host::describeCall(service->name.c_str(), service->method.c_str(), text));
    service->handler(new lpc_request{sd_bus_message_ref(call), text}, service->userData);
    return 1;
}

/// Asks the bus for the service's name, in bounded time.
bool takeName(Offers& offers, const char* service) {
    if (!offers.connection.flush(host::Deadline(host::busLimit))) return false;
    sd_bus* bus = offers.connection.bus();
    const int result = sd_bus_request_name(bus, host::serviceName(service).c_str(), 0);
    // Calls of the thread's other services may have come before the answer.
    while (!offers.services.empty() && sd_bus_process(bus, nullptr) > 0) {
    }
    return result >= 0 || failWith(result);
}

/// A lost connection has taken its services with it; so has the parent's in a forked child.
bool openForOffers() {
    Offers& offers = threadOffers();
    if (!offers.connection.isOpen()) offers.services.clear();
    return offers.connection.open();
}

bool isOffered(const Offers& offers, const char* service) {
    return std::any_of(offers.services.begin(), offers.services.end(),
                       [service](const lpc_service& offered) { return offered.name == service; });
}

}  // namespace

lpc_service* lpc_service_create(const char* service, int /*flags*/, const char* method, lpc_handler handler,
                                void* user_data) {
    const bool named = (host::isBusName(service) && host::isBusName(method)) || failWith(-EINVAL);
    if (!named || !openForOffers()) return nullptr;
    Offers& offers = threadOffers();
    if (!isOffered(offers, service) && !takeName(offers, service)) {
        // A bus that has not answered must not hand out the name later, when nobody serves it.
        if (errno != EEXIST || offers.services.empty()) offers.connection.close();
        return nullptr;
    }
    lpc_service& offer = offers.services.emplace_back(lpc_service{service, method, handler, user_data});
    const int result =
        sd_bus_add_object(offers.connection.bus(), nullptr, host::servicePath(service).c_str(), onCall, &offer);
    return result >= 0 || failWith(result) ? &offer : nullptr;
}

int lpc_service_fileno(lpc_service* /*service*/) {
    const host::Connection& connection = threadOffers().connection;
    return connection.isOpen() || failWith(-ENOTCONN) ? connection.descriptor() : -1;
}

int lpc_service_on_connect(lpc_service* /*service*/) {
    host::Connection& connection = threadOffers().connection;
    int handled = 1;
    while (handled > 0) handled = sd_bus_process(connection.bus(), nullptr);
    const bool served = (handled >= 0 || failWith(handled)) && connection.flush(host::Deadline(host::busLimit));
    if (!served) connection.close();
    return statusOf(served);
}

const char* lpc_request_params(lpc_request* request) { return request->text; }

void lpc_request_completed(lpc_request* request, const char* reply) {
    sd_bus_message* message = nullptr;
    int result = sd_bus_message_new_method_return(request->call, &message);
    if (result >= 0) result = host::appendText(message, reply != nullptr ? reply : "");
    if (result >= 0) result = sd_bus_message_send(message);
    if (result < 0) sd_bus_reply_method_errno(request->call, result, nullptr);
    sd_bus_message_unref(message);
    sd_bus_message_unref(request->call);
    delete request;
}
