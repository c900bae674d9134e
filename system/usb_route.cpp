#include "system/usb_route.h"

#include "command/service_call.h"

#include <cstdlib>
#include <iterator>

void routeUsb(const Command& command) {
    static constexpr const char* words[] = {"Off", "OUTA", "VALENS_UART_UPDATE", "On"};
    // As atoi(), but a number beyond all bounds stays out of range.
    const long route = std::strtol(command.argument, nullptr, 10);
    if (route < 0 || route >= std::ssize(words)) return reject(command);
    callService("intermcud", "trigerUsb", words[route]);
    printLine(command.line);
}
