/// One connection and its console: bytes both ways, and the end of the one when the other ends.
#pragma once

#include "host/launcher/console_process.h"
#include "host/launcher/lingering_closes.h"
#include "host/launcher/observers.h"
#include "host/launcher/peer.h"
#include "host/launcher/telnet_stream.h"
#include "host/loop/channel.h"
#include "host/loop/event_loop.h"

#include <chrono>
#include <memory>
#include <string>

namespace host {

class Session {
  public:
    /// `peerPatience` is how long a peer may take nothing of its waiting output. `onOver` is called once, when isOver()
    /// has become true; it must not destroy the session.
    Session(EventLoop& loop, Peer peer, ConsoleProcess console, TelnetStream::Kind kind, Observers& observers,
            LingeringCloses& lingeringCloses, std::chrono::milliseconds peerPatience, Callback onOver);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { observers_.closed(id_); }

    const std::string& peerAddress() const { return peer_.address; }

    /// Whether the running console has that process.
    bool isOf(pid_t pid) const { return !exited_ && console_.pid() == pid; }

    /// The console has ended and been reaped, and the peer has all of its output or is gone.
    bool isOver() const { return exited_ && !fromPeer_; }

    /// To be called when the console's process has been reaped.
    void consoleExited();

    /// Asks the console to end with SIGTERM; its last output is still delivered.
    void terminate();

    /// Closes both sides at once: the console gets SIGHUP, and SIGKILL if that was not enough.
    void hangUp();

  private:
    Channel::Handlers peerHandlers();
    Channel::Handlers consoleHandlers();

    void toConsole(const std::string& typed);
    bool isPeerTooFast() const;
    void resumePeer();
    void toPeer(std::string bytes);
    void onInputEnd(Channel::End end);
    void abandonPeer();
    void onQuiet();
    void endConsole();
    void closeConsole();
    void takeLastOutput();
    void closeIfDelivered();
    void reportIfOver();

    TelnetStream stream_;
    Peer peer_;
    Observers& observers_;
    const int id_;  ///< among the observers' sessions
    ConsoleProcess console_;
    LingeringCloses& lingeringCloses_;
    Callback onOver_;
    std::unique_ptr<Channel> fromPeer_;     ///< none once the peer is gone
    std::unique_ptr<Channel> fromConsole_;  ///< none once the console's terminal is closed
    Timer quiet_;                           ///< runs from the end of the peer's input to the end of the answers
    std::size_t unread_ = 0;                ///< what the console had not read of it when the time was over last
    std::chrono::steady_clock::time_point progress_;
    bool inputEnded_ = false;
    bool isMarkDue_ = false;
    Timer kill_;
    bool exited_ = false;
};

}  // namespace host
