#include "video/end_word_report.h"

#include "video/trigger.h"

#include <cstdio>
#include <strings.h>

namespace {

struct EndName {
    const char* word;
    const char* key;
};

constexpr EndName endNames[] = {
    {"on", "on"},     {"off", "off"},          {"vol+", "volumePlus"},    {"vol-", "volumeMinus"},
    {"mute", "mute"}, {"fbkon", "feedbackOn"}, {"fbkoff", "feedbackOff"}, {"fbkmute", "feedbackMute"},
};

bool holds(const char* argument, const char* word) {
    const std::size_t length = std::strlen(word);
    return isBracketed(argument) && std::strlen(argument) == length + 2 && strncasecmp(argument + 1, word, length) == 0;
}

}  // namespace

void reportEndWord(const Command& command) {
    for (const EndName& name : endNames) {
        if (!holds(command.argument, name.word)) continue;
        const OwnedText end = readTriggerText("end", name.key);
        if (end) std::printf("SetEnd %s[%s]\r\n", name.word, end.get());
        return;
    }
    reject(command);
}
