/// A descriptor with a buffer each way: what arrives is handed on, what is sent goes out as the other side takes it.
#pragma once

#include "host/loop/event_loop.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct bufferevent;

namespace host {

class Channel {
  public:
    enum class End {
        input,  ///< the other side has ended its output in order; sending may still work
        reset,  ///< it has given up the connection; the descriptor may hold input that was not handed on
        lost,   ///< another error, or nothing of the waiting output was taken for too long
    };
    struct Handlers {
        std::function<void(const std::string& bytes)> onInput;
        Callback onDrained;  ///< all that was sent is gone
        std::function<void(End)> onEnd;
    };

    /// `fd` is non-blocking, stays the caller's and must outlive the channel. The channel is lost when nothing of its
    /// output is taken for `patience`. It may be destroyed from within its handlers.
    Channel(EventLoop& loop, int fd, std::chrono::milliseconds patience, Handlers handlers);
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;
    ~Channel();

    void send(std::string_view bytes);

    /// Bytes sent that are not gone yet.
    std::size_t waiting() const;

    /// Leaves input where it is until resumeInput().
    void pauseInput();
    void resumeInput();

  private:
    std::unique_ptr<bufferevent, void (*)(bufferevent*)> event_;
    Handlers handlers_;
    bool paused_ = false;
};

}  // namespace host
