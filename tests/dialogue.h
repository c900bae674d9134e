/// What a console answers to what is typed, and what it shows of changes made elsewhere.
#pragma once

#include "console/change_walk.h"
#include "console/dispatcher.h"
#include "console/event_listener.h"
#include "console/session.h"
#include "host/store/defaults.h"
#include "tests/capture.h"
#include "tests/fake_platform/fake_platform.h"

#include <cctype>
#include <thread>

namespace fake_platform {

inline std::string typed(const std::string& line) {
    return capture([&line] { dispatchCommand(line.c_str()); });
}

inline std::string refused(const std::string& line) { return "Command FAILED: (" + line + ")\r\n"; }

/// The branch that a document is about.
inline std::string branchOf(const std::string& document) { return document.substr(2, document.find('"', 2) - 2); }

inline std::string shownOf(const std::string& document) {
    json_token* changes = json_token_parse(document.c_str());
    LineTurns turns;
    std::string text = capture([&] { walkChangedJson(changes, branchOf(document).c_str(), turns); });
    json_token_ref_put(changes);
    return text;
}

/// The kind of a value by the first byte of its JSON text.
inline char kindOf(const std::string& value) {
    if (value.empty()) return ' ';
    return value[0] == '-' || std::isdigit(value[0]) ? '0' : value[0] == 't' ? 'f' : value[0];
}

inline void setBroadcast(bool on) {
    setConfig(on ? R"({"system":{"broadcast":true}})" : R"({"system":{"broadcast":false}})");
}

/// A device with the default settings, whose consoles answer by themselves.
inline void makeNew() {
    reset();
    setConfig(host::defaultSettings);
    setStatus(host::defaultStatus);
    setBroadcast(false);
}

/// Lets the console of `session` show events, until the process ends.
inline void startListener(SessionContext& session) {
    std::thread(eventListenerThread, &session).detach();
    awaitSubscription("UpgradeSlaveVersionQuery");
}

}  // namespace fake_platform
