#include "video/cec_trigger.h"

#include "command/service_call.h"
#include "settings/write_path.h"
#include "text/text.h"

#include <algorithm>

namespace {

bool isCecWord(const char* argument) {
    static constexpr const char* words[] = {"on", "off", "vol+", "vol-", "mute"};
    return std::ranges::any_of(words, [argument](const char* word) { return equals(argument, word); });
}

}  // namespace

void callCec(const char* word) { callService("intermcud", "TrigCEC", word); }

void triggerCec(const Command& command) {
    if (!isCecWord(command.argument)) return reject(command);
    callCec(command.argument);
    publishChange(fillText(command.leaf, command.argument));
    if (!command.broadcast) printSetting(command.rowName, command.argument);
}
