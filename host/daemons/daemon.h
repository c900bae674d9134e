/// What the device's stand-in daemons share: the methods they offer, the events they subscribe to, their loop and their
/// log.
#pragma once

#include "host/loop/event_loop.h"

#include <list>
#include <string>

struct eventbus;

namespace host {

class Daemon {
  public:
    /// Returns the reply; the caller waits for it.
    using RequestHandler = std::function<std::string(const char* text)>;
    using EventHandler = std::function<void(const char* payload)>;

    explicit Daemon(std::string name);
    Daemon(const Daemon&) = delete;
    Daemon& operator=(const Daemon&) = delete;
    ~Daemon();

    /// Offers a method under the daemon's name. A failure is reported by run().
    void offer(const char* method, RequestHandler handler);

    /// Subscribes to an event. A failure is reported by run().
    void subscribe(const char* event, EventHandler handler);

    EventLoop& loop() { return loop_; }

    /// Announces that the daemon is ready and serves until SIGTERM. Returns the process's exit status: 1 when the bus
    /// is out of reach or gone.
    int run();

  private:
    struct Offer {
        const Daemon* daemon;
        const char* method;
        RequestHandler handler;
    };

    void failIf(bool failed, const char* what);
    bool openEvents();

    const std::string name_;
    EventLoop loop_;
    std::list<Offer> offers_;  // the bus keeps pointers to them
    std::list<EventHandler> handlers_;
    eventbus* events_ = nullptr;
    std::list<ReadWatch> watches_;
    bool failed_ = false;
};

}  // namespace host
