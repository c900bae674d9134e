#include "host/base/atomic_file.h"
#include "host/base/device_process.h"
#include "host/base/device_root.h"
#include "host/base/factory_store.h"
#include "host/base/readiness.h"
#include "host/base/visible_text.h"
#include "host/bus/bus_extensions.h"
#include "host/bus/call_log.h"
#include "host/bus/monitor.h"
#include "host/devicectl/play.h"
#include "host/devicectl/verb.h"
#include "host/store/document.h"
#include "host/store/store.h"
#include "platform/event_bus.h"
#include "platform/factory_data.h"
#include "text/owned_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <json-c/json_util.h>
#include <optional>
#include <unistd.h>

namespace host {
namespace {

using namespace std::chrono_literals;

int statusOf(bool success, const std::string& what) { return success ? 0 : fail(what); }

template <Store& (*store)()>
int getValue(const Arguments& words) {
    const char* query = words[0].c_str();
    if (!queriedPath(query)) return fail(query, "not a query document, such as {\"audio\":{}}");
    const std::optional<std::string> value = store().readText(query);
    if (!value) return fail(query, "nothing is stored there");
    std::puts(value->c_str());
    return 0;
}

/// "system.broadcast" for "/system/broadcast".
std::string nameOf(const std::string& path) {
    std::string name = path.substr(std::min<std::size_t>(1, path.size()));
    std::replace(name.begin(), name.end(), '/', '.');
    return name;
}

/// A tool for tests stores whatever is given, and warns of what the programs of the device may not expect.
void remarkOn(Store& store, const Leaf& leaf) {
    const Json wanted = parseFirstJson(leaf.value.c_str());
    const Json query = wrapped(leaf.path, parseFirstJson(leaf.value.c_str()));
    const std::optional<std::string> stored = store.readText(compactText(query.get()));
    const json_type now = json_object_get_type(wanted.get());
    const json_type before = stored ? json_object_get_type(parseFirstJson(stored->c_str()).get()) : now;
    const std::string name = nameOf(leaf.path);
    if (!stored) std::fprintf(stderr, "devicectl: %s is a new leaf\n", name.c_str());
    if (before == now) return;
    std::fprintf(stderr, "devicectl: %s was of type %s and is now of type %s\n", name.c_str(),
                 json_type_to_name(before), json_type_to_name(now));
}

template <Store& (*store)()>
int setValue(const Arguments& words) {
    const char* text = words[0].c_str();
    const Json document = parseUpdate(text);
    if (!document) return fail(text, "not a document that can be stored, such as {\"system\":{\"broadcast\":true}}");
    for (const Leaf& leaf : leavesOf(document.get())) remarkOn(store(), leaf);
    const bool isStored = store().update(text);
    if (isStored && !signalDevice(0)) {
        std::fprintf(stderr, "devicectl: stored; no device runs in %s, so nobody heard of it\n", deviceRoot().c_str());
    }
    return statusOf(isStored, text);
}

int publish(const Arguments& words) {
    return statusOf(eventbus_publish(words[0].c_str(), words[1].c_str()) == 0, words[0]);
}

int call(const Arguments& words) {
    const std::optional<std::string> reply = replyTo(words[0].c_str(), words[1].c_str(), words[2].c_str(), 10s);
    if (!reply) return fail(words[0] + " " + words[1]);
    if (!reply->empty()) std::puts(reply->c_str());
    return 0;
}

int getFactoryData(const Arguments& words) {
    char* text = nullptr;
    const bool found = factory_read_data(words[0].c_str(), &text) == 0;
    const OwnedText owned(text);
    if (!found) return fail(words[0], "nothing is stored there");
    std::puts(text);
    return 0;
}

int setFactoryData(const Arguments& words) {
    return statusOf(writeFactoryData(words[0].c_str(), words[1].c_str()), words[0]);
}

/// For a person: aligned, and coloured by kind.
void showTraffic(const BusTraffic& traffic) {
    const bool isCall = !traffic.service.empty();
    const std::string name = std::string(traffic.service) + (isCall ? " " : "") + std::string(traffic.name);
    std::printf("\x1b[%dm%-5s %-32s\x1b[0m %s\n", isCall ? 33 : 36, isCall ? "call" : "event", name.c_str(),
                visibleText(traffic.text).c_str());
}

/// For a program.
void printTraffic(const BusTraffic& traffic) {
    const std::string name(traffic.name);
    const std::string line = traffic.service.empty()
                                 ? "event " + name + " " + visibleText(traffic.text)
                                 : describeCall(std::string(traffic.service).c_str(), name.c_str(), traffic.text);
    std::puts(line.c_str());
}

int watch(const Arguments& /*words*/) {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    Monitor monitor(isatty(STDOUT_FILENO) != 0 ? showTraffic : printTraffic);
    if (!monitor.open()) return fail("bus");
    announceReady("watching");
    monitor.run();
    return fail("bus");
}

int listCalls(const Arguments& /*words*/) {
    const std::optional<std::string> calls = readFile(callLogPath());
    if (!calls) return errno == ENOENT ? 0 : fail(callLogPath());  // the first call makes the file
    std::fputs(calls->c_str(), stdout);
    return 0;
}

constexpr Verb table[] = {
    {"config get JSON", false, getValue<settingsStore>, "prints the settings below a document such as {\"audio\":{}}"},
    {"config set JSON", false, setValue<settingsStore>, "changes settings, as another program of the device would"},
    {"status get JSON", true, getValue<statusStore>, "the same for the live state"},
    {"status set JSON", true, setValue<statusStore>, "changes the live state: a pulled plug, a lost link"},
    {"publish EVENT TEXT", true, publish, "publishes an event"},
    {"call SERVICE METHOD TEXT", true, call, "calls a daemon and prints its reply"},
    {"factory get KEY", false, getFactoryData, "prints factory data, such as MacAddr"},
    {"factory set KEY TEXT", false, setFactoryData, "writes factory data"},
    {"watch", true, watch, "prints every event and call until it is stopped"},
    {"calls", false, listCalls, "prints the calls that the daemons got since the start"},
    {"play FILE", true, playScene, "plays a scene, such as scenes/flapping-link.scene"},
};

}  // namespace

std::span<const Verb> verbs() { return table; }

}  // namespace host
