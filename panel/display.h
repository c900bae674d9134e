/// The display at the address that the settings give for it, so that there is one to control.
#pragma once

#include "host/base/unique_fd.h"
#include "host/launcher/listener.h"
#include "host/loop/channel.h"
#include "host/loop/event_loop.h"

#include <functional>
#include <list>
#include <memory>
#include <string>

namespace panel {

class Display {
  public:
    /// `onTraffic` is called with what the display is sent and what it answers.
    using OnTraffic = std::function<void(const char* who, const std::string& bytes)>;

    Display(host::EventLoop& loop, OnTraffic onTraffic) : loop_(loop), onTraffic_(std::move(onTraffic)) {}

    /// "answers": takes what is sent and answers; "refuses": nobody listens; "off": nothing answers at all, not even a
    /// call. False with errno set, and nobody listening, when the address is not this machine's or is taken.
    bool set(const std::string& state);

    const std::string& state() const { return state_; }

  private:
    struct Caller {
        host::UniqueFd socket;
        std::unique_ptr<host::Channel> channel;
    };

    bool listen();
    bool stopAnswering();
    void admit(host::Peer peer);
    void answer(int socket, const std::string& bytes);

    host::EventLoop& loop_;
    OnTraffic onTraffic_;
    std::string state_ = "refuses";
    std::unique_ptr<host::Listener> listener_;
    std::list<Caller> callers_;
    host::UniqueFd unanswered_;
    host::UniqueFd onlyCaller_;
};

}  // namespace panel
