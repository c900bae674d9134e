#include "video/trigger_request.h"

namespace {

void appendString(RequestText& text, const char* key, const EndedString& string) {
    text.appendFormat("\"%s\":\"", key);
    text.appendEscaped(string.content);
    text.appendEscaped(string.end);
    text.append("\",");
}

}  // namespace

RequestText toJson(const TriggerRequest& request) {
    RequestText text;
    // The daemon reads the second field as "verify the answer", although it is filled from isRepeated (oddity 30).
    text.appendFormat(R"({"displayControl":{"fiveSecDelay":%d ,"fbVerify":%d ,"sendcount":%d ,)", request.waits,
                      request.isRepeated, request.sendCount);
    appendString(text, "sendData", request.sent);
    appendString(text, "fbData", request.expected);
    text.appendFormat(R"("fbEndNone":%d,"leadingFlag":%d,"writeNull":%d,"readNull":%d}})", request.endsBare,
                      request.isLeading, request.writesNull, request.readsNull);
    return text;
}
