/// The pace of a display-control daemon: one piece after the other, each after its waits.
#pragma once

#include "host/daemons/trigger_request.h"
#include "host/loop/event_loop.h"

#include <deque>
#include <vector>

namespace host {

/// The way to the display.
class DisplayLine {
  public:
    virtual ~DisplayLine() = default;

    /// Sends `bytes` and calls `done` later, whether they arrived or not.
    virtual void send(const std::string& bytes, Callback done) = 0;

    /// The last piece of a command is sent.
    virtual void endCommand() {}
};

/// How the console knows a transmitter.
struct TransmitterNames {
    const char* busyPath;  ///< the status leaf that is true while something is under way
    const char* command;   ///< what the names of its commands begin with: "TrigRS1"
};

/// Takes requests while others are under way and sends them in their order. When a command's last piece is out, it
/// publishes "CommandFeedback" with the name of the console's command.
class Transmitter {
  public:
    Transmitter(EventLoop& loop, const TransmitterNames& names, DisplayLine& line);

    /// Marks the transport busy before it returns. False when too much is waiting already.
    bool accept(TriggerRequest request);

  private:
    void startNext();
    void send();
    void endCommand();
    void rest();

    const TransmitterNames names_;
    DisplayLine& line_;
    Timer wait_;
    Timer quiet_;
    std::deque<TriggerRequest> waiting_;
    TriggerRequest current_;
    std::vector<std::string> sent_;  // the pieces of the current command
    bool isBusy_ = false;
};

}  // namespace host
