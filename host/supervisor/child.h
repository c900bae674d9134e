/// A program that the device runs and keeps running.
#pragma once

#include "host/base/unique_fd.h"
#include "host/loop/event_loop.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

namespace host {

class Child {
  public:
    using Command = std::vector<std::string>;

    struct Plan {
        std::string name;
        int rank;
        /// Where its standard output and error go: a descriptor of this process.
        int output;
        /// The program's path and arguments, asked for at each start. The program says that it is ready, in one line,
        /// on readyDescriptor.
        std::function<Command()> command;
        std::function<void(const Child& child, const std::string& line)> onReady;
        /// Called when the time of startLater() is over.
        std::function<void(Child& child)> onDue;
    };

    Child(EventLoop& loop, Plan plan);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    const std::string& name() const { return plan_.name; }
    int rank() const { return plan_.rank; }
    pid_t pid() const { return pid_; }
    bool isRunning() const { return pid_ > 0; }
    bool isReady() const { return isReady_; }

    /// Starts the program unless it runs, at once. False with errno set when it could not be started.
    bool start();

    void signal(int number) const;

    /// To be called when its process has been reaped.
    void ended();

    /// Lets its owner start it again in a while: the later, the more often it has ended soon after its start.
    void startLater();

  private:
    void readReadiness();

    EventLoop& loop_;
    const Plan plan_;
    pid_t pid_ = 0;
    bool isReady_ = false;
    UniqueFd readiness_;
    std::unique_ptr<ReadWatch> readinessWatch_;
    std::string line_;
    std::chrono::steady_clock::time_point started_;
    std::chrono::milliseconds delay_{0};
    Timer due_;
};

}  // namespace host
