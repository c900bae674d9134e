#include "video/cec_trigger.h"

#include "platform/lpc.h"
#include "settings/write_path.h"
#include "text/text.h"

#include <algorithm>
#include <cstdio>

namespace {

bool isCecWord(const char* argument) {
    static constexpr const char* words[] = {"on", "off", "vol+", "vol-", "mute"};
    return std::ranges::any_of(words, [argument](const char* word) { return equals(argument, word); });
}

}  // namespace

void callCec(const char* word) {
    if (lpc_proxy_call("intermcud", "TrigCEC", word) != 0) std::perror("lpc_proxy_call");
}

void triggerCec(const Command& command) {
    if (!isCecWord(command.argument)) return reject(command);
    callCec(command.argument);
    publishChange(fillText(command.leaf, command.argument));
    if (!command.broadcast) printSetting(command.rowName, command.argument);
}
