/// One thread that waits for many things: descriptors, signals and points in time.
///
/// Everything here belongs to the thread that runs the loop. A watch calls its callback until it is destroyed; it may
/// be destroyed from within its own callback.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

struct event;
struct event_base;

namespace host {

class EventLoop {
  public:
    EventLoop();

    /// Runs callbacks until stop() is called.
    void run();
    void stop();

    event_base* base() { return base_.get(); }

  private:
    std::unique_ptr<event_base, void (*)(event_base*)> base_;
};

using Callback = std::function<void()>;

/// What all watches share: the event they wait for and the callback. Not movable, since the loop knows its address.
class Watch {
  public:
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

  protected:
    Watch(EventLoop& loop, int fd, short kinds, Callback callback);

    std::unique_ptr<event, void (*)(event*)> event_;

  private:
    Callback callback_;
};

/// Calls back whenever `fd` has input, has ended or has failed. The descriptor stays the caller's and must outlive
/// the watch.
class ReadWatch : Watch {
  public:
    ReadWatch(EventLoop& loop, int fd, Callback callback);
};

/// Calls back, outside signal context, whenever `signal` has arrived.
class SignalWatch : Watch {
  public:
    SignalWatch(EventLoop& loop, int signal, Callback callback);
};

/// Calls back once, `delay` after start(); start() again begins anew.
class Timer : Watch {
  public:
    Timer(EventLoop& loop, Callback callback);

    void start(std::chrono::milliseconds delay);
    void stop();
    bool isRunning() const;
};

}  // namespace host
