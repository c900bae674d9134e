#include "host/loop/channel.h"

#include "host/base/time_span.h"

#include <cerrno>
#include <event2/buffer.h>
#include <event2/bufferevent.h>
#include <event2/event.h>
#include <new>
#include <utility>

namespace host {
namespace {

std::string takeInput(bufferevent* event) {
    evbuffer* input = bufferevent_get_input(event);
    std::string bytes(evbuffer_get_length(input), '\0');
    evbuffer_remove(input, bytes.data(), bytes.size());
    return bytes;
}

Channel::End endOf(short what) {
    if ((what & BEV_EVENT_EOF) != 0) return Channel::End::input;
    const bool wasReset = (what & BEV_EVENT_ERROR) != 0 && (errno == ECONNRESET || errno == EPIPE);
    return wasReset ? Channel::End::reset : Channel::End::lost;
}

}  // namespace

// Handlers are copied before they are called, since they may destroy the channel.
Channel::Channel(EventLoop& loop, int fd, std::chrono::milliseconds patience, Handlers handlers)
    : event_(bufferevent_socket_new(loop.base(), fd, 0), bufferevent_free), handlers_(std::move(handlers)) {
    if (event_ == nullptr) throw std::bad_alloc();
    const auto onInput = [](bufferevent* event, void* channel) {
        const auto handler = static_cast<Channel*>(channel)->handlers_.onInput;
        handler(takeInput(event));
    };
    const auto onDrained = [](bufferevent*, void* channel) {
        const auto handler = static_cast<Channel*>(channel)->handlers_.onDrained;
        handler();
    };
    const auto onEnd = [](bufferevent*, short what, void* channel) {
        const End end = endOf(what);
        const auto handler = static_cast<Channel*>(channel)->handlers_.onEnd;
        handler(end);
    };
    const timeval limit = toTimeval(patience);
    bufferevent_setcb(event_.get(), onInput, onDrained, onEnd, this);
    bufferevent_set_timeouts(event_.get(), nullptr, &limit);
    bufferevent_enable(event_.get(), EV_READ | EV_WRITE);
}

// Within a handler the library only forgets its events later, when the descriptor may be closed already.
Channel::~Channel() { bufferevent_disable(event_.get(), EV_READ | EV_WRITE); }

void Channel::send(std::string_view bytes) { bufferevent_write(event_.get(), bytes.data(), bytes.size()); }

std::size_t Channel::waiting() const { return evbuffer_get_length(bufferevent_get_output(event_.get())); }

void Channel::pauseInput() {
    paused_ = true;
    bufferevent_disable(event_.get(), EV_READ);
}

// Enabling a channel that was not paused would report the end of its input once more.
void Channel::resumeInput() {
    if (std::exchange(paused_, false)) bufferevent_enable(event_.get(), EV_READ);
}

}  // namespace host
