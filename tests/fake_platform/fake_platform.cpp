#include "tests/fake_platform/fake_platform.h"

#include "host/base/json.h"
#include "host/store/document.h"
#include "platform/event_bus.h"
#include "platform/factory_data.h"
#include "platform/json_token.h"
#include "platform/logger.h"
#include "platform/lpc.h"
#include "platform/shell.h"
#include "platform/user_config.h"
#include "platform/user_status.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <json-c/json.h>
#include <json-c/json_pointer.h>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

using fake_platform::Lines;
using host::Json;
using host::readBoolean;
using host::readDouble;
using host::readInt;
using host::readString;

namespace {

constexpr auto patience = std::chrono::seconds(10);

struct Failure {
    int successesLeft;
    int timesLeft;
    int error;
};

using Event = std::pair<std::string, std::string>;  ///< its name and its payload

/// One of the two stores.
struct Store {
    const char* updateFunction;
    std::string eventSuffix;
    Json tree{json_object_new_object()};
};

/// A descriptor that is readable as long as something waits.
int makeSignal() { return eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC); }

void clear(int signal) {
    eventfd_t count;
    eventfd_read(signal, &count);
}

}  // namespace

struct eventbus {
    int signal = makeSignal();
    std::multimap<std::string, std::pair<eventbus_callback, void*>> subscriptions;
    std::deque<Event> waiting;
    bool serving = false;
};

struct lpc_request {
    std::string text;
    std::optional<std::string> reply{};
    bool completed = false;
};

struct lpc_completion {
    const lpc_request* request;
};

struct lpc_service {
    std::thread::id owner = std::this_thread::get_id();
    std::string name;
    std::string method;
    lpc_handler handler;
    void* userData;
    int signal = makeSignal();
    std::deque<lpc_request*> waiting{};
};

namespace {

/// The device. Everything is guarded by `mutex`; callbacks and handlers run without it.
struct Device {
    std::mutex mutex;
    std::condition_variable changed;
    Store settings{"user_config_update", "UserConfigChanged"};
    Store status{"user_status_update", "StatusConfigChanged"};
    std::map<std::string, std::string> factoryData;
    std::map<std::pair<std::string, std::string>, std::string> replies;
    std::map<std::string, Failure> failures;
    Lines published, calls, shellLines, logLines, waits, updates;
    std::list<eventbus> buses;
    std::list<lpc_service> services;
    std::list<lpc_service> forgottenServices;
    std::list<lpc_request> requests;  // until they are completed, since a service may answer at any time
};

Device& device() {
    static Device* const instance = new Device;  // outlives the threads that are never joined
    return *instance;
}

Store& settings = device().settings;
Store& status = device().status;

using Lock = std::unique_lock<std::mutex>;

Lock lock() { return Lock(device().mutex); }

volatile int logLevels[LOG_CATEGORY_COUNT];

/// True, with errno set, when a test wants this call to fail.
bool fails(const char* function) {
    const auto failure = device().failures.find(function);
    if (failure == device().failures.end()) return false;
    auto& [successesLeft, timesLeft, error] = failure->second;
    if (successesLeft-- > 0) return false;
    errno = error;
    if (timesLeft > 0 && --timesLeft == 0) device().failures.erase(failure);
    return true;
}

/// What stands at `path`; null where nothing does.
Json valueAt(const Store& store, const std::string& path) {
    json_object* value = nullptr;
    json_pointer_get(store.tree.get(), path.c_str(), &value);
    return Json(json_object_get(value));
}

/// Puts the leaves of `document` into `tree`; true when one of them held another value before.
bool merge(json_object* tree, json_object* document) {
    bool anyChanged = false;
    json_object_object_foreach(document, key, value) {
        json_object* held = json_object_object_get(tree, key);
        const bool isBranch = json_object_is_type(value, json_type_object) != 0;
        if (isBranch ? json_object_object_length(value) == 0 : json_object_equal(held, value) != 0) continue;
        if (!isBranch || json_object_is_type(held, json_type_object) == 0)
            json_object_object_add(tree, key, isBranch ? json_object_new_object() : json_object_get(value));
        anyChanged |= !isBranch || merge(json_object_object_get(tree, key), value);
    }
    return anyChanged;
}

/// Hands an event to all that subscribed to it. The caller holds the lock.
void send(const std::string& name, const std::string& payload) {
    for (eventbus& bus : device().buses) {
        if (bus.subscriptions.count(name) == 0) continue;
        bus.waiting.push_back({name, payload});
        eventfd_write(bus.signal, 1);
    }
}

int update(Store& store, const char* text) {
    const Lock locked = lock();
    if (fails(store.updateFunction)) return -1;
    const Json document = host::parseUpdate(text);
    if (document == nullptr) {
        errno = EINVAL;
        return -1;
    }
    device().updates.push_back(text);
    json_object_object_foreach(document.get(), topKey, branch) {
        const Json part(json_object_new_object());
        json_object_object_add(part.get(), topKey, json_object_get(branch));
        if (merge(store.tree.get(), part.get())) send(topKey + store.eventSuffix, host::compactText(part.get()));
    }
    return 0;
}

/// Shows the value that `query` leads to to `read`, which says whether it is of the right kind. 0 where it is not.
template <typename Read>
int query(const char* function, const Store& store, const char* query, Read read) {
    const Lock locked = lock();
    if (fails(function)) return 0;
    const std::optional<std::string> path = host::queriedPath(query);
    const Json value = path ? valueAt(store, *path) : nullptr;
    if (value != nullptr && read(value.get())) return 1;
    errno = ENOENT;
    return 0;
}

template <typename Value>
int ask(const Store& store, const char* function, const char* text, bool (*read)(json_object*, Value*), Value* value) {
    return query(function, store, text, [read, value](json_object* leaf) { return read(leaf, value); });
}

json_token* queryToken(const char* function, const Store& store, const char* text) {
    Json found;
    query(function, store, text, [&](json_object* value) {
        json_object* copy = nullptr;
        json_object_deep_copy(value, &copy, nullptr);
        found = host::wrapped(*host::queriedPath(text), Json(copy));
        return true;
    });
    return found.release();
}

void setStore(Store& store, const std::string& text) {
    const Lock locked = lock();
    const Json document = host::parseUpdate(text.c_str());
    if (document == nullptr) {
        std::fprintf(stderr, "fake platform: no document: %s\n", text.c_str());
        std::abort();
    }
    merge(store.tree.get(), document.get());
}

std::string stored(const Store& store, const std::string& query) {
    const Lock locked = lock();
    const Json value = valueAt(store, host::queriedPath(query.c_str()).value());
    return value == nullptr ? "" : host::compactText(value.get());
}

Lines copyOfLines(const Lines& lines) {
    const Lock locked = lock();
    return lines;
}

int runShellLine(const char* function, const char* command) {
    const Lock locked = lock();
    if (fails(function)) return -1;
    device().shellLines.push_back(command);
    return std::strncmp(command, "exit ", 5) == 0 ? std::atoi(command + 5) : 0;  // all that it has of a shell
}

constexpr std::string_view daemons[] = {"displayControl", "displayControlTelnetClient", "intermcud", "networkd",
                                        "systemd",        "bruteForceAttacksd",         "kxcmdd"};

/// Notes a call and begins it. Null, with errno set, when it is to fail or nobody offers the service.
lpc_completion* call(const char* function, const char* service, const char* method, const char* text) {
    if (fails(function)) return nullptr;
    device().calls.push_back(std::string(service) + " " + method + " " + text);
    const auto isAsked = [&](const lpc_service& offered) {
        return offered.name == service && offered.method == method;
    };
    const auto offered = std::ranges::find_if(device().services, isAsked);
    const bool isOffered = offered != device().services.end();
    const auto reply = device().replies.find({service, method});
    const bool isAnswered = reply != device().replies.end();
    if (!isOffered && !isAnswered && std::ranges::count(daemons, service) == 0) {
        errno = ENXIO;
        return nullptr;
    }
    lpc_request& request = device().requests.emplace_back(lpc_request{text});
    request.completed = !isOffered;
    if (isAnswered) request.reply = reply->second;
    if (isOffered) {
        offered->waiting.push_back(&request);
        eventfd_write(offered->signal, 1);
    }
    return new lpc_completion{&request};
}

/// Until the request is completed. False with errno set when it is not within the limit.
bool await(Lock& locked, const lpc_completion& completion, std::chrono::milliseconds limit) {
    if (device().changed.wait_for(locked, limit, [&] { return completion.request->completed; })) return true;
    errno = ETIMEDOUT;
    return false;
}

/// The next event of a bus under service.
bool takeEvent(eventbus& bus, Event& event) {
    const Lock locked = lock();
    bus.serving = !bus.waiting.empty();
    if (!bus.serving) {
        device().changed.notify_all();
        return false;
    }
    event = std::move(bus.waiting.front());
    bus.waiting.pop_front();
    return true;
}

}  // namespace

namespace fake_platform {

void reset() {
    const Lock locked = lock();
    Device& all = device();
    for (Store* store : {&all.settings, &all.status}) store->tree.reset(json_object_new_object());
    all.factoryData.clear();
    all.replies.clear();
    all.failures.clear();
    for (Lines* lines : {&all.published, &all.calls, &all.shellLines, &all.logLines, &all.waits, &all.updates})
        lines->clear();
    for (eventbus& bus : all.buses) bus.waiting.clear();
    all.requests.remove_if([](const lpc_request& request) { return request.completed; });
    all.forgottenServices.splice(all.forgottenServices.end(), all.services);
    setLogLevel(0);
}

void setConfig(const std::string& document) { setStore(device().settings, document); }
void setStatus(const std::string& document) { setStore(device().status, document); }
std::string config(const std::string& query) { return stored(device().settings, query); }
std::string status(const std::string& query) { return stored(device().status, query); }

void setFactoryData(const std::string& key, const std::string& text) {
    const Lock locked = lock();
    device().factoryData[key] = text;
}

void setReply(const std::string& service, const std::string& method, const std::string& text) {
    const Lock locked = lock();
    device().replies[{service, method}] = text;
}

void setLogLevel(int level) {
    if (logLevels[LOG_CATEGORY_CONSOLE] != level) logLevels[LOG_CATEGORY_CONSOLE] = level;
}

void fail(const std::string& function, int times, int error, int successes) {
    const Lock locked = lock();
    device().failures[function] = {successes, times, error};
}

Lines published() { return copyOfLines(device().published); }
Lines calls() { return copyOfLines(device().calls); }
Lines shellLines() { return copyOfLines(device().shellLines); }
Lines logLines() { return copyOfLines(device().logLines); }
Lines waits() { return copyOfLines(device().waits); }
Lines updates() { return copyOfLines(device().updates); }

bool deliver(const std::string& event, const std::string& payload) {
    Lock locked = lock();
    send(event, payload);
    const auto isServed = [](const eventbus& bus) { return !bus.serving && bus.waiting.empty(); };
    return device().changed.wait_for(locked, patience, [&] { return std::ranges::all_of(device().buses, isServed); });
}

bool awaitSubscription(const std::string& event) {
    Lock locked = lock();
    const auto isSubscribed = [&](const eventbus& bus) { return bus.subscriptions.count(event) != 0; };
    return device().changed.wait_for(locked, patience,
                                     [&] { return std::ranges::any_of(device().buses, isSubscribed); });
}

}  // namespace fake_platform

// What the program links: platform/*.h.

extern "C" {

int user_config_query_boolean(const char* at, int* value) { return ask(settings, __func__, at, readBoolean, value); }

int user_config_query_int(const char* at, int* value) { return ask(settings, __func__, at, readInt, value); }

int user_config_query_string(const char* at, char** value) { return ask(settings, __func__, at, readString, value); }

json_token* user_config_query_to_json_token(const char* text) { return queryToken(__func__, device().settings, text); }

int user_config_update(const char* document) { return update(device().settings, document); }

int user_status_query_boolean(const char* at, int* value) { return ask(status, __func__, at, readBoolean, value); }

int user_status_query_int(const char* at, int* value) { return ask(status, __func__, at, readInt, value); }

int user_status_query_double(const char* at, double* value) { return ask(status, __func__, at, readDouble, value); }

int user_status_query_string(const char* at, char** value) { return ask(status, __func__, at, readString, value); }

json_token* user_status_query_to_json_token(const char* text) { return queryToken(__func__, device().status, text); }

int user_status_update(const char* document) { return update(device().status, document); }

int factory_read_data(const char* key, char** text) {
    const Lock locked = lock();
    *text = nullptr;
    const auto found = device().factoryData.find(key);
    if (fails(__func__) || found == device().factoryData.end()) return -1;
    *text = strdup(found->second.c_str());
    return 0;
}

const volatile int* __logLevels = logLevels;

void __printLog(int level, const char* format, ...) {
    char text[1024];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    const Lock locked = lock();
    device().logLines.push_back(std::to_string(level) + " " + text);
}

int lsystem(const char* command) { return runShellLine(__func__, command); }

int __wrap_system(const char* command) { return runShellLine("system", command); }

int __real_usleep(useconds_t microseconds);

int __wrap_usleep(useconds_t microseconds) {
    if (microseconds < 100'000) return __real_usleep(microseconds);
    const Lock locked = lock();
    device().waits.push_back(std::to_string(microseconds));
    return 0;
}

eventbus* eventbus_open(void) {
    const Lock locked = lock();
    if (fails(__func__)) return nullptr;
    return &device().buses.emplace_back();
}

int eventbus_subscribe(eventbus* bus, const char* event, eventbus_callback callback, void* userData) {
    const Lock locked = lock();
    if (fails(__func__)) return -1;
    bus->subscriptions.insert({event, {callback, userData}});
    device().changed.notify_all();
    return 0;
}

int eventbus_fileno(eventbus* bus) { return bus->signal; }

int eventbus_on_data_available(eventbus* bus) {
    {
        const Lock locked = lock();
        if (fails(__func__)) return -1;
        clear(bus->signal);
    }
    Event event;
    while (takeEvent(*bus, event)) {
        const auto [first, last] = bus->subscriptions.equal_range(event.first);
        for (auto subscription = first; subscription != last; ++subscription) {
            const auto [callback, userData] = subscription->second;
            callback(userData, event.second.c_str());
        }
    }
    return 0;
}

void eventbus_close(eventbus* bus) {
    const Lock locked = lock();
    if (bus != nullptr) close(bus->signal);
    device().buses.remove_if([bus](const eventbus& each) { return &each == bus; });
    device().changed.notify_all();
}

int eventbus_publish(const char* event, const char* payload) {
    const Lock locked = lock();
    if (fails(__func__)) return -1;
    device().published.push_back(std::string(event) + " " + payload);
    send(event, payload);
    return 0;
}

int lpc_proxy_call(const char* service, const char* method, const char* text) {
    Lock locked = lock();
    const std::unique_ptr<lpc_completion> completion(call(__func__, service, method, text));
    return completion != nullptr && await(locked, *completion, std::chrono::seconds(3)) ? 0 : -1;
}

int lpc_proxy_call_with_reply(const char* service, const char* method, const char* text, lpc_completion** completion) {
    const Lock locked = lock();
    *completion = call(__func__, service, method, text);
    return *completion != nullptr ? 0 : -1;
}

int lpc_completion_wait(lpc_completion* completion, int limit) {
    Lock locked = lock();
    return !fails(__func__) && await(locked, *completion, std::chrono::milliseconds(limit)) ? 0 : -1;
}

const char* lpc_completion_data(lpc_completion* completion) {
    const Lock locked = lock();
    return completion->request->reply ? completion->request->reply->c_str() : nullptr;
}

void lpc_completion_destroy(lpc_completion* completion) { delete completion; }

lpc_service* lpc_service_create(const char* service, int /*flags*/, const char* method, lpc_handler handler,
                                void* userData) {
    const Lock locked = lock();
    if (fails(__func__)) return nullptr;
    for (const lpc_service& offered : device().services) {
        if (offered.name != service) continue;
        if (offered.owner == std::this_thread::get_id() && offered.method != method) continue;
        errno = EEXIST;
        return nullptr;
    }
    return &device().services.emplace_back(
        lpc_service{.name = service, .method = method, .handler = handler, .userData = userData});
}

int lpc_service_fileno(lpc_service* service) {
    const Lock locked = lock();
    return fails(__func__) ? -1 : service->signal;
}

int lpc_service_on_connect(lpc_service* service) {
    std::deque<lpc_request*> requests;
    {
        const Lock locked = lock();
        if (fails(__func__)) return -1;
        clear(service->signal);
        requests.swap(service->waiting);
    }
    for (lpc_request* request : requests) service->handler(request, service->userData);
    return 0;
}

const char* lpc_request_params(lpc_request* request) { return request->text.c_str(); }

void lpc_request_completed(lpc_request* request, const char* reply) {
    const Lock locked = lock();
    request->reply = reply == nullptr ? "" : reply;
    request->completed = true;
    device().changed.notify_all();
}

}  // extern "C"
