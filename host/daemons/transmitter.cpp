#include "host/daemons/transmitter.h"

#include "host/base/note.h"
#include "host/daemons/leaf_value.h"
#include "host/daemons/trigger_name.h"
#include "platform/event_bus.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto waitTime = 5s;

/// How long the next piece of a paced command may be on its way from the console.
constexpr auto quietTime = 100ms;

constexpr std::size_t mostWaiting = 64;

std::string repeated(const TriggerRequest& request) {
    std::string bytes;
    for (int i = 0; i < request.sendCount; ++i) bytes += request.bytes;
    return bytes;
}

}  // namespace

Transmitter::Transmitter(EventLoop& loop, const TransmitterNames& names, DisplayLine& line)
    : names_(names), line_(line), wait_(loop, [this] { send(); }), quiet_(loop, [this] { rest(); }) {
    // Of a daemon that died while it was sending.
    putStatusFlag(names_.busyPath, false);
}

bool Transmitter::accept(TriggerRequest request) {
    if (waiting_.size() >= mostWaiting) return false;
    waiting_.push_back(std::move(request));
    if (isBusy_ && !quiet_.isRunning()) return true;
    quiet_.stop();
    if (!isBusy_) putStatusFlag(names_.busyPath, true);
    isBusy_ = true;
    startNext();
    return true;
}

void Transmitter::startNext() {
    if (waiting_.empty()) return quiet_.start(quietTime);
    current_ = std::move(waiting_.front());
    waiting_.pop_front();
    if (current_.isLeading && !sent_.empty()) endCommand();
    wait_.start(current_.waits * waitTime);
}

void Transmitter::send() {
    note("%s sends %d times %s", names_.command, current_.sendCount, describeBytes(current_.bytes).c_str());
    sent_.push_back(current_.bytes);
    line_.send(repeated(current_), [this] { startNext(); });
}

void Transmitter::endCommand() {
    line_.endCommand();
    const std::string action = triggerNameOf(sent_);
    sent_.clear();
    if (action.empty()) return note("%s sent no stored string", names_.command);
    const std::string feedback = std::string(names_.command) + " " + action;
    if (eventbus_publish("CommandFeedback", feedback.c_str()) != 0) note("CommandFeedback %s: %m", feedback.c_str());
}

/// The transport is free before its command is announced, so that whoever hears of it can send the next.
void Transmitter::rest() {
    putStatusFlag(names_.busyPath, false);
    isBusy_ = false;
    endCommand();
}

}  // namespace host
