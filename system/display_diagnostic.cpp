#include "system/display_diagnostic.h"

#include "command/service_call.h"
#include "text/text.h"

#include <cstdio>

namespace {

void sendToDisplay(const char* text) {
    callService("kxcmdd", "receiveFromUartString", text, "lpc_proxy_call receiveFromUartString");
    std::fprintf(stderr, "\033[1;33m%s\033[0m\r\n", text);
}

}  // namespace

void runDiagnostic(const Command& command) {
    if (equals(command.argument, "on")) sendToDisplay("KX_Display On");
    if (equals(command.argument, "off")) sendToDisplay("KX_Display Off");
}
