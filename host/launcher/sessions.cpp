#include "host/launcher/sessions.h"

#include "host/launcher/peer.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <sys/wait.h>

namespace host {

using namespace std::chrono_literals;

Sessions::Sessions(EventLoop& loop, const Options& options)
    : loop_(loop),
      options_(options),
      lingeringCloses_(loop),
      observers_(loop),
      sweep_(loop, [this] { sweep(); }),
      childWatch_(loop, SIGCHLD, [this] { reap(); }) {}

void Sessions::admit(Peer peer, const ConsolePort& port) {
    if (const char* reason = reasonToRefuse(peer.address))
        return lingeringCloses_.close(std::move(peer.socket), reason);
    std::optional<ConsoleProcess> console = ConsoleProcess::start(port.programName, peer.address);
    if (!console) {
        std::perror("launcher: no console");
        return lingeringCloses_.close(std::move(peer.socket), "No console available.\r\n");
    }
    const bool isTelnet = &port == &consolePorts[0];
    preparePeerSocket(peer.socket.get());
    // A session says that it is over from within its own handlers; it is forgotten when they have returned.
    const auto sweepSoon = [this] { sweep_.start(0ms); };
    sessions_.emplace_back(loop_, std::move(peer), std::move(*console),
                           isTelnet ? TelnetStream::Kind::negotiating : TelnetStream::Kind::raw, observers_,
                           lingeringCloses_, std::chrono::seconds(options_.peerPatience), sweepSoon);
}

const char* Sessions::reasonToRefuse(const std::string& address) const {
    const auto isFromThere = [&address](const Session& other) { return other.peerAddress() == address; };
    if (sessions_.size() >= static_cast<std::size_t>(options_.maxSessions)) return "Too many sessions.\r\n";
    if (std::count_if(sessions_.begin(), sessions_.end(), isFromThere) >= options_.maxPerAddress)
        return "Too many sessions from your address.\r\n";
    return nullptr;
}

void Sessions::terminateAll() {
    for (Session& session : sessions_) session.terminate();
}

void Sessions::close(Callback onEmpty) {
    onEmpty_ = std::move(onEmpty);
    for (Session& session : sessions_) session.hangUp();
    sweep_.start(0ms);
}

void Sessions::reap() {
    while (true) {
        const pid_t pid = waitpid(-1, nullptr, WNOHANG);
        if (pid <= 0) return;
        const auto session =
            std::find_if(sessions_.begin(), sessions_.end(), [pid](const Session& other) { return other.isOf(pid); });
        if (session != sessions_.end()) session->consoleExited();
    }
}

void Sessions::sweep() {
    sessions_.remove_if([](const Session& session) { return session.isOver(); });
    if (sessions_.empty() && onEmpty_) onEmpty_();
}

}  // namespace host
