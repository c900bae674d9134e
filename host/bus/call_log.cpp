#include "host/bus/call_log.h"

#include "host/base/device_root.h"
#include "host/base/visible_text.h"

namespace host {

std::string callLogPath() { return inRoot("log/calls"); }

std::string describeCall(const char* service, const char* method, const char* text) {
    return std::string("call ") + service + " " + method + " " + visibleText(text);
}

}  // namespace host
