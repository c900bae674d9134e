#include "host/bus/call_log.h"

#include "host/base/device_root.h"
#include "host/base/visible_text.h"

#include <fcntl.h>
#include <unistd.h>

namespace host {

std::string callLogPath() { return inRoot("log/calls"); }

std::string describeCall(const char* service, const char* method, const char* text) {
    return std::string("call ") + service + " " + method + " " + visibleText(text);
}

void logCall(const char* service, const char* method, const char* text) {
    const int file = open(callLogPath().c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0) return;
    const std::string line = describeCall(service, method, text) + "\n";
    if (write(file, line.data(), line.size()) < 0) {
        // A full disk costs the list a line; the call itself goes on.
    }
    close(file);
}

}  // namespace host
