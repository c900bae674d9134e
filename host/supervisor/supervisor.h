/// The whole device: its bus, its daemons and its launcher, from the start to the end.
#pragma once

#include "host/loop/event_loop.h"
#include "host/loop/unique_fd.h"
#include "host/supervisor/child.h"
#include "host/supervisor/options.h"
#include "host/supervisor/programs.h"
#include "host/supervisor/stores.h"

#include <list>
#include <optional>
#include <string>

namespace host {

class Supervisor {
  public:
    /// How a run has ended.
    enum class Outcome { stopped, failed, restartWanted };

    Supervisor(EventLoop& loop, const DeviceOptions& options, const Programs& programs);
    Supervisor(const Supervisor&) = delete;
    Supervisor& operator=(const Supervisor&) = delete;

    /// Starts everything in a root whose folders and stores are prepared. A line on standard output tells when
    /// connections are accepted.
    void start();

    /// Ends all that was started, and then the loop. The first call's outcome holds.
    void stop(Outcome outcome);

    Outcome outcome() const { return outcome_.value_or(Outcome::failed); }

    /// The options with which the device starts again on the ports that it has now.
    const DeviceOptions& options() const { return options_; }

  private:
    void add(Child::Plan plan);
    Child& bus() { return children_.front(); }
    void addPanel(const std::string& program);
    Child::Command launcherCommand(const std::string& program) const;

    void startChild(Child& child);
    void onBusReady();
    void onLauncherReady(const std::string& address);
    void rememberStart(int telnetPort);
    void announceIfReady();

    void reap();
    void onEnded(Child& child, int status);
    void proceedStopping();
    void finish();
    void signalRank(int number);
    void onDeadline();

    EventLoop& loop_;
    DeviceOptions options_;
    UniqueFd busOutput_;
    std::list<Child> children_;  ///< the bus first
    std::string readyLine_;
    std::string panelLine_;  ///< empty where there is no panel
    bool isAnnounced_ = false;
    std::optional<Outcome> outcome_;
    int endingRank_ = -1;  ///< of the children that were asked to end last
    SignalWatch childWatch_;
    Timer deadline_;
    Checkpoints checkpoints_;
};

}  // namespace host
