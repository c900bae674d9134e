#include "host/loop/event_loop.h"

#include "host/base/time_span.h"

#include <cstdio>
#include <cstdlib>
#include <event2/event.h>

namespace host {
namespace {

/// The few allocations of a loop fail only where nothing can go on.
template <typename T>
T* orDie(T* allocated) {
    if (allocated != nullptr) return allocated;
    std::perror("event loop");
    std::exit(1);
}

}  // namespace

EventLoop::EventLoop() : base_(orDie(event_base_new()), event_base_free) {}

void EventLoop::run() { event_base_loop(base_.get(), EVLOOP_NO_EXIT_ON_EMPTY); }

void EventLoop::stop() { event_base_loopbreak(base_.get()); }

Watch::Watch(EventLoop& loop, int fd, short kinds, Callback callback)
    : event_(nullptr, event_free), callback_(std::move(callback)) {
    const auto call = [](evutil_socket_t, short, void* watch) {
        // A copy, since the callback may destroy its watch.
        const Callback copy = static_cast<Watch*>(watch)->callback_;
        copy();
    };
    event_.reset(orDie(event_new(loop.base(), fd, kinds, call, this)));
    if (kinds != 0) event_add(event_.get(), nullptr);
}

ReadWatch::ReadWatch(EventLoop& loop, int fd, Callback callback)
    : Watch(loop, fd, EV_READ | EV_PERSIST, std::move(callback)) {}

SignalWatch::SignalWatch(EventLoop& loop, int signal, Callback callback)
    : Watch(loop, signal, EV_SIGNAL | EV_PERSIST, std::move(callback)) {}

Timer::Timer(EventLoop& loop, Callback callback) : Watch(loop, -1, 0, std::move(callback)) {}

void Timer::start(std::chrono::milliseconds delay) {
    const timeval span = toTimeval(delay);
    event_add(event_.get(), &span);
}

void Timer::stop() { event_del(event_.get()); }

bool Timer::isRunning() const { return event_pending(event_.get(), EV_TIMEOUT, nullptr) != 0; }

}  // namespace host
