/// Orders to the device's other daemons.
#pragma once

#include "platform/lpc.h"

#include <cstdio>

/// Calls `method` of `service` with `text`. A failure is told on standard error and to nobody else: the command that
/// gave the order goes on.
inline void callService(const char* service, const char* method, const char* text,
                        const char* failureText = "lpc_proxy_call") {
    if (lpc_proxy_call(service, method, text) != 0) std::perror(failureText);
}
