#include "video/trigger.h"

#include "command/log.h"
#include "platform/lpc.h"
#include "platform/user_status.h"
#include "settings/leaf.h"
#include "video/trigger_pacing.h"
#include "video/trigger_request.h"

#include <cerrno>
#include <cstdio>

namespace {

constexpr char repeatLeaf[] = R"({"control":{"displayControl":{"output1":{"triger":{"command":{"repeat":%s}}}}}})";
constexpr char repeatTimesLeaf[] =
    R"({"control":{"displayControl":{"output1":{"triger":{"command":{"repeatTimes":%d}}}}}})";

struct StoredString {
    OwnedText content;
    OwnedText end;

    explicit operator bool() const { return content && end; }
};

StoredString readString(const char* key) { return {readTriggerText("content", key), readTriggerText("end", key)}; }

bool isOn(const char* leaf) { return readBoolean(leaf) == 1; }

void clearBusy(const Transport& transport) {
    if (isLogged(LOG_LEVEL_TRACE)) __printLog(LOG_LEVEL_TRACE, " *************C. displayControlStatus off\r\n");
    if (user_status_update(fillBoolean(transport.busyLeaf, false).c_str()) == 0) return;
    if (isLogged(LOG_LEVEL_ERROR)) __printLog(LOG_LEVEL_ERROR, "1 user_config_update");
}

/// A request that does not fit counts as a failed call; it is never cut.
bool call(const Transport& transport, const RequestText& text, std::size_t room) {
    if (text.isCut() || text.plainSize() >= room) {
        errno = EMSGSIZE;
        return false;
    }
    return lpc_proxy_call(transport.service, "SetCmdOn", text.c_str()) == 0;
}

bool send(const Transport& transport, const Trigger& trigger, const TriggerRequest& request) {
    if (call(transport, toJson(request), trigger.requestSize)) return true;
    std::perror("lpc_proxy_call");
    clearBusy(transport);
    return false;
}

void setExpected(TriggerRequest& request, const StoredString& answer) {
    const TriggerEnd* end = findTriggerEnd(answer.end.get());
    if (end == nullptr) return;  // without a known end no answer is expected
    request.expected = {answer.content.get(), end->asHexWords};
    request.readsNull = end->isNull;
}

void setRepetition(TriggerRequest& request) {
    request.isRepeated = isOn(repeatLeaf);
    if (request.isRepeated) request.sendCount = readInteger(repeatTimesLeaf).value_or(0);
}

void setPiece(TriggerRequest& request, const TriggerPiece& piece) {
    request.sent.content = piece.words.c_str();
    request.waits = piece.waits;
    request.isLeading = piece.isFirst;
    if (!piece.isFirst) request.sendCount = 1;
}

void sendPaced(const Transport& transport, const Trigger& trigger, TriggerRequest request) {
    sendInPieces(request.sent.content, [&](const TriggerPiece& piece) {
        setPiece(request, piece);
        return send(transport, trigger, request);
    });
}

}  // namespace

OwnedText readTriggerText(const char* group, const char* key) {
    FixedText<160> leaf;
    leaf.appendFormat(R"({"control":{"displayControl":{"output1":{"triger":{"command":{"%s":{"%s":"%%s"}}}}}}})", group,
                      key);
    return readText(leaf.c_str());
}

void sendTrigger(const Transport& transport, const Trigger& trigger) {
    if (readStatusBoolean(transport.busyLeaf) == 1) return;
    const StoredString string = readString(trigger.key);
    const StoredString answer = trigger.answerKey != nullptr ? readString(trigger.answerKey) : StoredString{};
    if (!string || (trigger.answerKey != nullptr && !answer)) return;

    const TriggerEnd& end = triggerEnd(string.end.get());
    TriggerRequest request{.sent = {string.content.get(), end.*trigger.endForm}, .writesNull = end.isNull};
    if (answer) setExpected(request, answer);
    setRepetition(request);
    if (isOn(commandWaitLeaf)) {
        request.endsBare = equals(end.word, "None");
        sendPaced(transport, trigger, request);
    } else {
        send(transport, trigger, request);
    }
}

void ignoreTrigger(const Command& /*command*/) {}
