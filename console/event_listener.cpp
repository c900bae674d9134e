#include "console/event_listener.h"

#include "command/command.h"
#include "command/events.h"
#include "command/owned_token.h"
#include "console/bus_loop.h"
#include "console/change_walk.h"
#include "console/session.h"
#include "platform/json_token.h"
#include "platform/user_status.h"
#include "settings/leaf.h"
#include "system/network_leaves.h"
#include "text/fixed_text.h"
#include "text/text.h"
#include "video/link_report.h"

#include <cstdint>
#include <cstdio>

namespace {

char controlCategory[] = "control";
char configCategory[] = "config";
char audioCategory[] = "audio";
char videoCategory[] = "video";
char networkCategory[] = "network";
char systemCategory[] = "system";

SessionContext* session = nullptr;

/// A changed time-out is set on the idle clock at once, whether the change is printed or not.
void followTimeout(json_token* changes) {
    const int seconds = json_token_object_walk_get_int(changes, "network.telnet.tcpipTimeout", -1);
    if (seconds >= 0) session->idle.change(static_cast<std::uint32_t>(seconds));
}

void readTimeout() {
    const std::optional<int> seconds = readInteger(timeoutLeaf);
    if (seconds) session->idle.change(static_cast<std::uint32_t>(*seconds));
}

/// The event of a reset names no leaf; any may have changed. The clock is restarted with the stored time-out.
void followReset(const char* payload) {
    if (!equals(payload, R"({"network":{}})")) return;
    readTimeout();
    session->idle.restart();
}

/// Whether `payload` is shown already: most changes tell of one leaf, and only a change of the network may concern the
/// idle clock.
bool isShownAsItIs(const char* payload) {
    return sessionAuthenticated && !startsWith(payload, R"({"network")") && showPlainChange(payload, session->turns);
}

void showChanges(json_token* changes, const char* category) {
    if (sessionAuthenticated) walkChangedJson(changes, category, session->turns);
}

OwnedToken parsePayload(const char* payload) {
    OwnedToken token(json_token_parse(payload));
    if (!token) std::perror("json_token_parse");
    return token;
}

/// The whole category, for an event that came without its document.
OwnedToken queryStatus(const char* category) {
    FixedText<64> query;
    query.appendFormat("{\"%s\":{}}", category);
    OwnedToken token(user_status_query_to_json_token(query.c_str()));
    if (!token) std::perror("user_config_query_to_json_token");
    return token;
}

OwnedToken statusChanges(const char* category, const char* payload) {
    return payload != nullptr ? parsePayload(payload) : queryStatus(category);
}

void onConfigChanged(void* category, const char* payload) {
    if (payload == nullptr || isShownAsItIs(payload)) return;
    const OwnedToken changes = parsePayload(payload);
    if (!changes) return;
    followTimeout(changes.get());
    followReset(payload);
    showChanges(changes.get(), static_cast<const char*>(category));
}

void onStatusChanged(void* category, const char* payload) {
    const OwnedToken changes = statusChanges(static_cast<const char*>(category), payload);
    if (changes) showChanges(changes.get(), static_cast<const char*>(category));
}

/// Only a console of kind 1 is a link monitor; every console shows the other changed leaves.
void onLinkStatusChanged(void* category, const char* payload) {
    const OwnedToken changes = statusChanges(static_cast<const char*>(category), payload);
    if (!changes) return;
    if (session->kind == 1) answerLinkRequest(changes.get());
    showChanges(changes.get(), static_cast<const char*>(category));
}

void onCommandFeedback(void* /*userData*/, const char* text) {
    if (text == nullptr) return;
    ChangeTurn turn(session->turns);
    turn.take();
    printLine(text);
}

void onUpgradeState(void* /*userData*/, const char* state) {
    if (!sessionAuthenticated || state == nullptr) return;
    ChangeTurn turn(session->turns);
    turn.take();
    if (equals(state, "Sys Default\r")) return printLine("Mreset");
    if (equals(state, "Web Reboot\r")) return printLine("Reboot");
    std::printf("unknown upgrade state : %s\n", state);  // oddity 21
}

constexpr long listenerLimit = 1000;  // milliseconds

Mutex startMutex;
Condition startIsOver;
bool isStarting GUARDED_BY(startMutex) = false;

void endStart() {
    const MutexLock lock(startMutex);
    isStarting = false;
    startIsOver.notify();
}

/// The idle thread may have read the time-out before a change whose event came before this subscription.
void onSubscribed() {
    endStart();
    readTimeout();
}

constexpr BusSubscription subscriptions[] = {
    {"controlUserConfigChanged", onConfigChanged, controlCategory},
    {"configUserConfigChanged", onConfigChanged, configCategory},
    {"audioUserConfigChanged", onConfigChanged, audioCategory},
    {"videoUserConfigChanged", onConfigChanged, videoCategory},
    {"networkUserConfigChanged", onConfigChanged, networkCategory},
    {"systemUserConfigChanged", onConfigChanged, systemCategory},
    {commandFeedbackEvent, onCommandFeedback, nullptr},
    {"videoStatusConfigChanged", onLinkStatusChanged, videoCategory},
    {"systemStatusConfigChanged", onStatusChanged, systemCategory},
    {upgradeEvent, onUpgradeState, nullptr},
};

}  // namespace

void* eventListenerThread(void* sessionContext) {
    session = static_cast<SessionContext*>(sessionContext);
    listenToBus(subscriptions, onSubscribed);
    endStart();
    return nullptr;
}

void expectListener() {
    const MutexLock lock(startMutex);
    isStarting = true;
}

void awaitListener() {
    const MutexLock lock(startMutex);
    while (isStarting) isStarting = startIsOver.wait(startMutex, listenerLimit) && isStarting;
}
