/// What other daemons of the device may ask of the launcher, over LPC.
#pragma once

#include "host/launcher/ports.h"
#include "host/launcher/sessions.h"
#include "host/loop/event_loop.h"

#include <memory>
#include <string>

namespace host {

/// Offers "telnetLauncher": "listen" with a port moves the telnet port, "endSessions" ends all sessions. Without a bus
/// it tries again and again; the sessions do not need it.
class LauncherService {
  public:
    LauncherService(EventLoop& loop, Ports& ports, Sessions& sessions);

  private:
    void offer();
    void retryLater();
    std::string listen(const char* port);

    EventLoop& loop_;
    Ports& ports_;
    Sessions& sessions_;
    std::unique_ptr<ReadWatch> requests_;
    Timer retry_;
};

}  // namespace host
