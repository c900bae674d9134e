#include "host/bus/call_log.h"

#include "host/base/atomic_file.h"
#include "host/base/device_root.h"
#include "host/base/visible_text.h"

namespace host {

std::string callLogPath() { return inRoot("log/calls"); }

std::string describeCall(const char* service, const char* method, const char* text) {
    return std::string("call ") + service + " " + method + " " + visibleText(text);
}

void logCall(const char* service, const char* method, const char* text) {
    appendLine(callLogPath(), describeCall(service, method, text));
}

}  // namespace host
