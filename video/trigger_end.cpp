#include "video/trigger_end.h"

#include "text/text.h"
#include "video/trigger.h"

#include <cstdio>
#include <strings.h>

namespace {

constexpr TriggerEnd ends[] = {
    {"STX", " 02", "\x02", false},      {"ETX", " 03", "\x03", false},
    {"LF", " 0A", "\n", false},         {"CR", " 0D", "\r", false},
    {"CR-LF", " 0D 0A", "\r\n", false}, {"Space", " 20", " ", false},
    {"Null", " 00", "", true},          {"None", "", "", false},
};

struct EndName {
    const char* word;
    const char* key;
};

constexpr EndName endNames[] = {
    {"on", powerOn.key}, {"off", powerOff.key},        {"vol+", volumeUp.key},         {"vol-", volumeDown.key},
    {"mute", mute.key},  {"fbkon", powerOn.answerKey}, {"fbkoff", powerOff.answerKey}, {"fbkmute", mute.answerKey},
};

bool holds(const char* argument, const char* word) {
    const std::size_t length = std::strlen(word);
    return isBracketed(argument) && std::strlen(argument) == length + 2 && strncasecmp(argument + 1, word, length) == 0;
}

}  // namespace

const TriggerEnd* findTriggerEnd(const char* word) {
    for (const TriggerEnd& end : ends) {
        if (equals(word, end.word)) return &end;
    }
    return nullptr;
}

const TriggerEnd& triggerEnd(const char* word) {
    const TriggerEnd* end = findTriggerEnd(word);
    return end != nullptr ? *end : ends[0];
}

void reportEndWord(const Command& command) {
    for (const EndName& name : endNames) {
        if (!holds(command.argument, name.word)) continue;
        const OwnedText end = readTriggerText("end", name.key);
        if (end) std::printf("SetEnd %s[%s]\r\n", name.word, end.get());
        return;
    }
    reject(command);
}
