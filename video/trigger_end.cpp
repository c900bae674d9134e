#include "video/trigger_end.h"

#include "text/text.h"

namespace {

constexpr TriggerEnd ends[] = {
    {"STX", " 02", "\x02", false},      {"ETX", " 03", "\x03", false},
    {"LF", " 0A", "\n", false},         {"CR", " 0D", "\r", false},
    {"CR-LF", " 0D 0A", "\r\n", false}, {"Space", " 20", " ", false},
    {"Null", " 00", "", true},          {"None", "", "", false},
};

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
