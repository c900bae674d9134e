/// What the two display-control daemons have in common: one control string after the other, each after its waits.
#pragma once

#include "host/daemons/trigger_request.h"
#include "host/loop/event_loop.h"

#include <deque>
#include <string>
#include <vector>

namespace host {

class Daemon;

class Transmitter {
  public:
    /// Offers "SetCmdOn", takes requests while others are under way and sends them in their order. The status leaf at
    /// `busyPath` is true meanwhile. When a command's last piece is out, it publishes "CommandFeedback" with the name
    /// of the console's command, which begins with `command`: "TrigRS1 on".
    Transmitter(Daemon& daemon, const char* command, const char* busyPath);
    virtual ~Transmitter() = default;

  protected:
    /// Sends `bytes` to the display and calls startNext() later, whether they arrived or not.
    virtual void transmit(const std::string& bytes) = 0;
    void startNext();

    /// The last piece of a command is sent.
    virtual void hangUp() {}

  private:
    std::string accept(const char* text);
    void send();
    void endCommand();
    void becomeIdle();

    const char* const command_;
    const char* const busyPath_;
    Timer wait_;
    Timer quiet_;
    std::deque<TriggerRequest> waiting_;
    TriggerRequest current_;
    std::vector<std::string> sent_;  // the texts of the current command's pieces
    bool isBusy_ = false;
};

}  // namespace host
