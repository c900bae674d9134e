/// The whole device: its bus, its daemons and its launcher, from the start to the end.
#pragma once

#include "host/base/unique_fd.h"
#include "host/launcher/options.h"
#include "host/loop/event_loop.h"
#include "host/supervisor/child.h"

#include <functional>
#include <list>
#include <optional>
#include <string>
#include <unistd.h>

namespace host {

class Supervisor {
  public:
    /// How a run has ended.
    enum class Outcome { stopped, failed, restartWanted };

    Supervisor(EventLoop& loop, const Options& options);
    Supervisor(const Supervisor&) = delete;
    Supervisor& operator=(const Supervisor&) = delete;

    /// Starts everything in a root whose folders and stores are prepared. A line on standard output says when
    /// connections are accepted.
    void start();

    /// Ends all that was started, and then the loop. The first call's outcome holds.
    void stop(Outcome outcome);

    Outcome outcome() const { return outcome_.value_or(Outcome::failed); }

    /// The options with which the device starts again on the ports that it has now.
    const Options& options() const { return options_; }

  private:
    void add(const char* name, int rank, std::function<Child::Command()> command, int output = STDERR_FILENO);
    Child& bus() { return children_.front(); }
    Child::Command panelCommand() const;
    Child::Command launcherCommand() const;

    void startChild(Child& child);
    void onReady(const Child& child, const std::string& line);
    void onBusReady();
    void onLauncherReady(const std::string& address);
    void rememberStart(int telnetPort);
    void announceIfReady();

    void checkpoint();
    void reap();
    void onEnded(Child& child, int status);
    void proceedStopping();
    void finish();
    void signalRank(int number);
    void onDeadline();

    EventLoop& loop_;
    Options options_;
    UniqueFd busOutput_;
    std::list<Child> children_;  ///< the bus first
    std::string readyLine_;
    std::string panelLine_;  ///< empty where there is no panel
    bool isAnnounced_ = false;
    std::optional<Outcome> outcome_;
    int endingRank_ = -1;  ///< of the children that were asked to end last
    SignalWatch childWatch_;
    Timer deadline_;
    Timer checkpoint_;
};

}  // namespace host
