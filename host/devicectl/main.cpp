/// Looks into a device and works on it from outside, by hand or in a script.
#include "host/base/device_root.h"
#include "host/base/factory_store.h"
#include "host/base/readiness.h"
#include "host/base/visible_text.h"
#include "host/bus/call_log.h"
#include "host/bus/monitor.h"
#include "host/bus/reply.h"
#include "host/store/store.h"
#include "platform/event_bus.h"
#include "platform/factory_data.h"
#include "text/owned_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr int failureStatus = 1;
constexpr int usageStatus = 2;

using Arguments = std::vector<const char*>;

/// The one line of a command that failed: what it was about, and errno's reason or a given one.
int fail(const std::string& what, const char* reason = nullptr) {
    if (reason == nullptr) reason = std::strerror(errno);
    std::fprintf(stderr, "devicectl: %s: %s\n", what.c_str(), reason);
    return failureStatus;
}

int statusOf(bool success, const std::string& what) { return success ? 0 : fail(what); }

int getValue(Store& store, const char* query) {
    const std::optional<std::string> value = store.readText(query);
    if (!value) return fail(query, "nothing is stored there");
    std::puts(value->c_str());
    return 0;
}

int getConfig(const Arguments& words) { return getValue(settingsStore(), words[0]); }
int getStatus(const Arguments& words) { return getValue(statusStore(), words[0]); }
int setConfig(const Arguments& words) { return statusOf(settingsStore().update(words[0]), words[0]); }
int setStatus(const Arguments& words) { return statusOf(statusStore().update(words[0]), words[0]); }

int publish(const Arguments& words) { return statusOf(eventbus_publish(words[0], words[1]) == 0, words[0]); }

int call(const Arguments& words) {
    const std::optional<std::string> reply = replyTo(words[0], words[1], words[2], 10s);
    if (!reply) return fail(std::string(words[0]) + " " + words[1]);
    if (!reply->empty()) std::puts(reply->c_str());
    return 0;
}

int getFactoryData(const Arguments& words) {
    char* text = nullptr;
    const bool found = factory_read_data(words[0], &text) == 0;
    const OwnedText owned(text);
    if (!found) return fail(words[0], "nothing is stored there");
    std::puts(text);
    return 0;
}

int setFactoryData(const Arguments& words) { return statusOf(writeFactoryData(words[0], words[1]), words[0]); }

void printTraffic(const BusTraffic& traffic) {
    const std::string name(traffic.name);
    const std::string line = traffic.service.empty()
                                 ? "event " + name + " " + visibleText(traffic.text)
                                 : describeCall(std::string(traffic.service).c_str(), name.c_str(), traffic.text);
    std::puts(line.c_str());
    std::fflush(stdout);
}

int watch(const Arguments& /*words*/) {
    Monitor monitor(printTraffic);
    if (!monitor.open()) return fail("bus");
    announceReady("watching");
    monitor.run();
    return fail("bus");
}

int listCalls(const Arguments& /*words*/) {
    std::ifstream file(callLogPath());
    if (!file) return fail(callLogPath());
    for (std::string line; std::getline(file, line);) std::puts(line.c_str());
    return 0;
}

struct Verb {
    std::string_view words;  ///< that name the command
    const char* parameters;  ///< that follow them
    std::size_t parameterCount;
    int (*run)(const Arguments& parameters);
};

constexpr Verb verbs[] = {
    {"config get", "JSON", 1, getConfig},
    {"config set", "JSON", 1, setConfig},
    {"status get", "JSON", 1, getStatus},
    {"status set", "JSON", 1, setStatus},
    {"publish", "EVENT TEXT", 2, publish},
    {"call", "SERVICE METHOD TEXT", 3, call},
    {"factory get", "KEY", 1, getFactoryData},
    {"factory set", "KEY TEXT", 2, setFactoryData},
    {"watch", "", 0, watch},
    {"calls", "", 0, listCalls},
};

bool isMeant(const Verb& verb, const Arguments& arguments) {
    std::string words;
    for (std::size_t i = 0; i + verb.parameterCount < arguments.size(); ++i) {
        words.append(i > 0 ? " " : "").append(arguments[i]);
    }
    return words == verb.words;
}

int showUsage() {
    std::fputs("usage: devicectl --root DIR COMMAND, one of:", stderr);
    const char* separator = " ";
    for (const Verb& verb : verbs) {
        std::fprintf(stderr, "%s%s%s%s", separator, verb.words.data(), verb.parameterCount > 0 ? " " : "",
                     verb.parameters);
        separator = " | ";
    }
    std::fputc('\n', stderr);
    return usageStatus;
}

int runVerb(const Arguments& arguments) {
    for (const Verb& verb : verbs) {
        if (!isMeant(verb, arguments)) continue;
        if (!std::filesystem::is_directory(deviceRoot())) return fail(deviceRoot(), "no such device root");
        return verb.run(Arguments(arguments.end() - static_cast<std::ptrdiff_t>(verb.parameterCount), arguments.end()));
    }
    return showUsage();
}

/// Takes "--root DIR" or "--root=DIR" off the front; false where neither stands.
bool takeRoot(Arguments& arguments) {
    constexpr std::string_view option = "--root";
    if (arguments.empty() || !std::string_view(arguments[0]).starts_with(option)) return false;
    const char* rest = arguments[0] + option.size();
    const bool isOneWord = *rest == '=';
    if (!isOneWord && (*rest != '\0' || arguments.size() < 2)) return false;
    setDeviceRoot(isOneWord ? rest + 1 : arguments[1]);
    arguments.erase(arguments.begin(), arguments.begin() + (isOneWord ? 1 : 2));
    return true;
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
    host::Arguments arguments(argv + std::min(argc, 1), argv + argc);
    return host::takeRoot(arguments) ? host::runVerb(arguments) : host::showUsage();
}
