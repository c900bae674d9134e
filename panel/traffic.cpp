#include "panel/traffic.h"

#include <utility>

namespace panel {
namespace {

using namespace std::chrono_literals;

constexpr auto retryTime = 500ms;

}  // namespace

Traffic::Traffic(host::EventLoop& loop, host::Monitor::Report report)
    : loop_(loop), report_(std::move(report)), retry_(loop, [this] { start(); }) {}

void Traffic::start() {
    if (watch_ != nullptr) return;
    monitor_ = std::make_unique<host::Monitor>(report_);
    if (!monitor_->open()) return retry_.start(retryTime);
    watch_ = std::make_unique<host::ReadWatch>(loop_, monitor_->descriptor(), [this] { report(); });
    // What came along with the bus's answer is no longer in the descriptor.
    report();
}

void Traffic::stop() {
    retry_.stop();
    watch_.reset();
    monitor_.reset();
}

void Traffic::report() {
    if (monitor_->reportWaiting()) return;
    stop();
    retry_.start(retryTime);
}

}  // namespace panel
