#include "video/display_button.h"

#include "platform/event_bus.h"
#include "settings/write_path.h"
#include "video/cec_trigger.h"
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

const char* oppositePower() {
    const OwnedText power = readText(powerLeaf);
    return power && equals(power.get(), "on") ? "off" : "on";
}

/// No row owns the power setting, so that its change event shows nothing: the consoles are told by name.
void announcePower(const Command& command, const char* word) {
    FixedText<32> text;
    text.appendFormat("%s %s", command.rowName, word);
    if (eventbus_publish("CommandFeedback", text.c_str()) == 0) return;
    if (isLogged(LOG_LEVEL_ERROR)) __printLog(LOG_LEVEL_ERROR, "eventbus_publish(UserConfigFeedback error!)");
}

void setPower(const Command& command, const char* word) {
    if (!updateSettings(fillText(powerLeaf, word))) return logWriteFailure();
    if (command.broadcast) return announcePower(command, word);
    printSetting(command.rowName, word);
}

void sendToDisplay(const SentWord& sent) {
    const OwnedText type = readText(R"({"control":{"displayControl":{"output1":{"controlType":"%s"}}}})");
    if (!type) return;
    if (isLogged(LOG_LEVEL_TRACE)) __printLog(LOG_LEVEL_TRACE, "controlType = %s\r\n", type.get());
    if (equals(type.get(), "rs-232")) return sendTrigger(rs232, sent.trigger);
    if (equals(type.get(), "ip")) return sendTrigger(telnet, sent.trigger);
    if (equals(type.get(), "cec")) callCec(sent.word);
}

}  // namespace

void pressDisplayButton(const Command& command) {
    if (equals(command.argument, "sta")) return reportPower(command);
    if (equals(command.argument, "tog")) return setPower(command, oppositePower());
    if (equals(command.argument, "on") || equals(command.argument, "off")) return setPower(command, command.argument);
    for (const SentWord& sent : sentWords) {
        if (equals(command.argument, sent.word)) return sendToDisplay(sent);
    }
    reject(command);
}
