/// Calls to the device's other daemons.
#pragma once

#include "platform/lpc.h"

#include <cstdio>

/// Calls `method` of `service` with `text`. A failure is reported on standard error only: the command that
/// made the call goes on.
inline void callService(const char* service, const char* method, const char* text,
                        const char* failureText = "lpc_proxy_call") {
    if (lpc_proxy_call(service, method, text) != 0) std::perror(failureText);
}
