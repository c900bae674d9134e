/// All sessions of the device: who is let in, and who is still there.
#pragma once

#include "console/ports.h"
#include "host/launcher/lingering_closes.h"
#include "host/launcher/observers.h"
#include "host/launcher/options.h"
#include "host/launcher/session.h"
#include "host/loop/event_loop.h"

#include <list>
#include <string>

namespace host {

class Sessions {
  public:
    Sessions(EventLoop& loop, const Options& options);

    /// Starts a console for the connection, or sends the peer one line that says why there is none.
    void admit(Peer peer, const ConsolePort& port);

    /// Asks every console to end.
    void terminateAll();

    /// Ends every session and calls `onEmpty` once all consoles are gone.
    void close(Callback onEmpty);

  private:
    const char* reasonToRefuse(const std::string& address) const;
    void reap();
    void sweep();

    EventLoop& loop_;
    const Options& options_;
    LingeringCloses lingeringCloses_;
    Observers observers_;
    std::list<Session> sessions_;
    Timer sweep_;
    SignalWatch childWatch_;
    Callback onEmpty_;
};

}  // namespace host
