#include "host/bus/bus_extensions.h"
#include "host/bus/bus_names.h"
#include "host/bus/connection.h"
#include "host/bus/text_message.h"
#include "platform/lpc.h"

#include <cstring>
#include <memory>

using host::failWith;
using host::statusOf;

/// A call on its way. It keeps the bus over which it went, which may no longer be the thread's.
struct lpc_completion {
    ~lpc_completion() { forget(); }

    /// Leaves errno as it is.
    void forget() {
        const int error = errno;
        slot = sd_bus_slot_unref(slot);
        reply = sd_bus_message_unref(reply);
        bus = sd_bus_unref(bus);
        errno = error;
    }

    sd_bus* bus = nullptr;
    sd_bus_slot* slot = nullptr;
    sd_bus_message* reply = nullptr;
    const char* text = nullptr;
};

namespace {

using namespace std::chrono_literals;

constexpr auto callLimit = 3s;

int onReply(sd_bus_message* reply, void* userData, sd_bus_error* /*error*/) {
    auto* completion = static_cast<lpc_completion*>(userData);
    completion->reply = sd_bus_message_ref(reply);
    completion->text = host::readText(reply);
    return 1;
}

int callOn(sd_bus* bus, const char* service, const char* method, const char* text, lpc_completion& completion) {
    completion.forget();
    completion.bus = sd_bus_ref(bus);
    sd_bus_message* message = nullptr;
    int result = sd_bus_message_new_method_call(bus, &message, host::serviceName(service).c_str(),
                                                host::servicePath(service).c_str(), host::callInterface, method);
    if (result >= 0) result = sd_bus_message_set_auto_start(message, false);
    if (result >= 0) result = host::appendText(message, text);
    if (result >= 0) result = sd_bus_call_async(bus, &completion.slot, message, onReply, &completion, UINT64_MAX);
    sd_bus_message_unref(message);
    return result;
}

bool isCallable(const char* service, const char* method, const char* text) {
    if (!host::isBusName(service) || !host::isBusName(method)) return failWith(-EINVAL);
    return std::strlen(text) < host::longestText || failWith(-EMSGSIZE);
}

}  // namespace

std::optional<std::string> host::replyTo(const char* service, const char* method, const char* text,
                                         std::chrono::milliseconds limit) {
    if (!isCallable(service, method, text)) return std::nullopt;
    lpc_completion call;
    const auto send = [&](sd_bus* bus) { return callOn(bus, service, method, text, call); };
    if (!sendFromThread(send) || lpc_completion_wait(&call, static_cast<int>(limit.count())) != 0) return std::nullopt;
    return call.text != nullptr ? call.text : "";
}

int lpc_proxy_call(const char* service, const char* method, const char* text) {
    return statusOf(host::replyTo(service, method, text, callLimit).has_value());
}

int lpc_proxy_call_with_reply(const char* service, const char* method, const char* text, lpc_completion** completion) {
    *completion = nullptr;
    if (!isCallable(service, method, text)) return -1;
    auto call = std::make_unique<lpc_completion>();
    const auto send = [&](sd_bus* bus) { return callOn(bus, service, method, text, *call); };
    if (!host::sendFromThread(send)) return -1;
    *completion = call.release();
    return 0;
}

int lpc_completion_wait(lpc_completion* completion, int limit) {
    const host::Deadline deadline{std::chrono::milliseconds(limit)};
    const auto isAnswered = [completion] { return completion->reply != nullptr; };
    if (!host::processUntil(completion->bus, deadline, isAnswered)) return -1;
    const int error = sd_bus_message_get_errno(completion->reply);
    return statusOf(error == 0 || failWith(-error));
}

const char* lpc_completion_data(lpc_completion* completion) { return completion->text; }

void lpc_completion_destroy(lpc_completion* completion) { delete completion; }
