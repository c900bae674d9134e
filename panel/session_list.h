/// The sessions that are open, as the launcher reports them to its observers.
#pragma once

#include "host/base/json.h"
#include "host/base/unique_fd.h"
#include "host/loop/channel.h"
#include "host/loop/event_loop.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace panel {

struct Session {
    std::string port;
    std::string peer;
    std::string since;  ///< in seconds since the epoch
    std::string lastCommand;
};

class SessionList {
  public:
    /// `onChange` is called when the list has changed, `onTyped` with the session and its line.
    SessionList(host::EventLoop& loop, host::Callback onChange,
                std::function<void(const Session&, const std::string&)> onTyped);

    /// Begin and end to observe the launcher, across its restarts.
    void start();
    void stop();

    /// All of them, as an array.
    host::Json list() const;

  private:
    void take(const std::string& bytes);
    void takeLine(const std::string& line);
    void lose();

    host::EventLoop& loop_;
    host::Callback onChange_;
    std::function<void(const Session&, const std::string&)> onTyped_;
    std::map<int, Session> sessions_;
    host::UniqueFd socket_;
    std::unique_ptr<host::Channel> launcher_;
    std::string arriving_;
    host::Timer retry_;
};

}  // namespace panel
