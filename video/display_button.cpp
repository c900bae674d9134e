#include "video/display_button.h"

#include "command/events.h"
#include "command/service_call.h"
#include "platform/event_bus.h"
#include "settings/change_lock.h"
#include "settings/write_path.h"
#include "video/trigger.h"

namespace {

constexpr char powerLeaf[] = R"({"control":{"displayControl":{"output1":{"buttonControl":{"power":"%s"}}}}})";

/// A word that goes to the display.
struct SentWord {
    const char* word;
    const Trigger& trigger;
};

constexpr SentWord sentWords[] = {{"mute", mute}, {"vol+", volumeUp}, {"vol-", volumeDown}};

void reportPower(const Command& command) {
    const OwnedText power = readText(powerLeaf);
    if (power) printSetting(command.rowName, power.get());
}

/// The word to store for a typed one.
const char* powerFor(const char* word) {
    if (!equals(word, "tog")) return word;
    const OwnedText power = readText(powerLeaf);
    return power && equals(power.get(), "on") ? "off" : "on";
}

/// No row owns the power setting, so that its change event prints nothing: the change is published as a text.
void announcePower(const Command& command, const char* word) {
    FixedText<32> text;
    text.appendFormat("%s %s", command.rowName, word);
    if (eventbus_publish(commandFeedbackEvent, text.c_str()) == 0) return;
    if (isLogged(LOG_LEVEL_ERROR)) __printLog(LOG_LEVEL_ERROR, "eventbus_publish(UserConfigFeedback error!)");
}

/// Announced as part of the step, so that the last word that is shown is the stored one.
void setPower(const Command& command) {
    ChangeLock lock;
    if (!lock) return reject(command);
    const char* word = powerFor(command.argument);
    if (!updateSettings(fillText(powerLeaf, word))) return logWriteFailure();
    if (command.broadcast) return announcePower(command, word);
    lock.release();
    printSetting(command.rowName, word);
}

void callCec(const char* word) { callService("intermcud", "TrigCEC", word); }

void sendToDisplay(const SentWord& sent) {
    const OwnedText type = readText(controlTypeLeaf);
    if (!type) return;
    if (isLogged(LOG_LEVEL_TRACE)) __printLog(LOG_LEVEL_TRACE, "controlType = %s\r\n", type.get());
    if (equals(type.get(), "rs-232")) return sendTrigger(rs232, sent.trigger);
    if (equals(type.get(), "ip")) return sendTrigger(telnet, sent.trigger);
    if (equals(type.get(), "cec")) callCec(sent.word);
}

}  // namespace

void pressDisplayButton(const Command& command) {
    if (equals(command.argument, "sta")) return reportPower(command);
    for (const char* word : {"on", "off", "tog"}) {
        if (equals(command.argument, word)) return setPower(command);
    }
    for (const SentWord& sent : sentWords) {
        if (equals(command.argument, sent.word)) return sendToDisplay(sent);
    }
    reject(command);
}

void triggerCec(const Command& command) {
    for (const Word& word : command.family.words) {
        if (!equals(command.argument, word.typed)) continue;
        callCec(command.argument);
        publishChange(fillText(command.leaf, command.argument));
        if (!command.broadcast) printSetting(command.rowName, command.argument);
        return;
    }
    reject(command);
}
