#include "host/launcher/session.h"

#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace host {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Output that may wait for a peer before its console is no longer read, and the same for a console's input.
constexpr std::size_t mostForPeer = 65'536;
constexpr std::size_t mostForConsole = 65'536;

/// A console that has read none of its input in that time counts as hung.
constexpr auto consolePatience = 30s;

/// From SIGHUP or SIGTERM to SIGKILL; longer where a last text that the console collects may still be on its way.
constexpr auto endPatience = 2s;
constexpr auto lastTextPatience = 6s;

/// Sent to the console after the last byte of a peer, which cannot send it itself: a console that echoes it has carried
/// out all that came before. The echo is not passed on.
constexpr char endMark = '\xff';

/// After the echo, answers may still come over the bus. They are complete once the console has written nothing for the
/// quiet time, or at the latest, where changes of others keep it writing, after the second time.
constexpr auto quietTime = 300ms;
constexpr auto mostTalking = 3s;

}  // namespace

Session::Session(EventLoop& loop, Peer peer, ConsoleProcess console, TelnetStream::Kind kind, Observers& observers,
                 LingeringCloses& lingeringCloses, milliseconds peerPatience, Callback onOver)
    : stream_(kind),
      peer_(std::move(peer)),
      observers_(observers),
      id_(observers.opened(peer_)),
      console_(std::move(console)),
      lingeringCloses_(lingeringCloses),
      onOver_(std::move(onOver)),
      fromPeer_(std::make_unique<Channel>(loop, peer_.socket.get(), peerPatience, peerHandlers())),
      fromConsole_(std::make_unique<Channel>(loop, console_.terminal(), consolePatience, consoleHandlers())),
      quiet_(loop, [this] { onQuiet(); }),
      kill_(loop, [this] { console_.signal(SIGKILL); }) {
    fromPeer_->send(stream_.takeReplies());
}

Channel::Handlers Session::peerHandlers() {
    return {.onInput = [this](const std::string& bytes) { toConsole(stream_.decode(bytes)); },
            .onDrained =
                [this] {
                    if (fromConsole_) fromConsole_->resumeInput();
                    resumePeer();
                    closeIfDelivered();
                },
            .onEnd = [this](Channel::End end) { end == Channel::End::lost ? hangUp() : onInputEnd(end); }};
}

Channel::Handlers Session::consoleHandlers() {
    return {.onInput = [this](const std::string& bytes) { toPeer(bytes); },
            .onDrained = [this] { resumePeer(); },
            .onEnd =
                [this](Channel::End) {
                    kill_.start(endPatience);
                    closeConsole();
                }};
}

void Session::toConsole(const std::string& typed) {
    fromPeer_->send(stream_.takeReplies());
    if (fromConsole_) {
        observers_.typed(id_, typed);
        fromConsole_->send(typed);
    }
    if (isPeerTooFast()) fromPeer_->pauseInput();
}

/// Also one that is answered more than it reads.
bool Session::isPeerTooFast() const {
    return fromPeer_->waiting() > mostForPeer || (fromConsole_ && fromConsole_->waiting() > mostForConsole);
}

void Session::resumePeer() {
    if (fromPeer_ && !isPeerTooFast()) fromPeer_->resumeInput();
}

void Session::toPeer(std::string bytes) {
    const std::size_t mark = isMarkDue_ ? bytes.find(endMark) : bytes.npos;
    if (mark != bytes.npos) {
        bytes.erase(mark, 1);
        isMarkDue_ = false;
    }
    if (quiet_.isRunning() && steady_clock::now() < progress_ + mostTalking) quiet_.start(quietTime);
    if (!fromPeer_) return;
    fromPeer_->send(stream_.encode(bytes));
    if (fromPeer_->waiting() > mostForPeer) fromConsole_->pauseInput();
}

/// The same for a closed, a half-closed and a reset connection: what was received is carried out, then the session
/// ends.
void Session::onInputEnd(Channel::End end) {
    if (end == Channel::End::reset) abandonPeer();
    if (!fromConsole_) return reportIfOver();
    fromConsole_->resumeInput();
    if (std::exchange(inputEnded_, true)) return;
    fromConsole_->send({&endMark, 1});
    isMarkDue_ = true;
    progress_ = steady_clock::now();
    quiet_.start(quietTime);
}

/// A write may fail before all that had arrived is read.
void Session::abandonPeer() {
    std::array<char, 4096> bytes;
    for (ssize_t count; (count = recv(peer_.socket.get(), bytes.data(), bytes.size(), MSG_DONTWAIT)) > 0;)
        toConsole(stream_.decode({bytes.data(), static_cast<std::size_t>(count)}));
    fromPeer_.reset();
    peer_.socket.reset();
}

void Session::onQuiet() {
    const std::size_t before = std::exchange(unread_, fromConsole_->waiting() + console_.unreadBytes());
    if (unread_ != before) progress_ = steady_clock::now();
    const bool isDelivered = !fromPeer_ || fromPeer_->waiting() == 0;
    if (before + unread_ == 0 && !isMarkDue_ && isDelivered) return endConsole();
    if (steady_clock::now() > progress_ + consolePatience) return hangUp();
    quiet_.start(quietTime);
}

/// The terminal stays open for the console's last output.
void Session::endConsole() {
    console_.signal(SIGHUP);
    kill_.start(lastTextPatience);
}

void Session::consoleExited() {
    exited_ = true;
    kill_.stop();
    if (fromConsole_) closeConsole();
    reportIfOver();
}

void Session::terminate() {
    console_.signal(SIGTERM);
    kill_.start(endPatience);
}

void Session::hangUp() {
    quiet_.stop();
    fromPeer_.reset();
    peer_.socket.reset();
    fromConsole_.reset();
    console_.hangUp();
    if (!exited_) kill_.start(endPatience);
    reportIfOver();
}

/// The console's side is over; what it said last still has to reach the peer.
void Session::closeConsole() {
    quiet_.stop();
    takeLastOutput();
    fromConsole_.reset();
    console_.hangUp();
    closeIfDelivered();
}

/// A program that the console has left behind may hold the terminal open and write on, so there is a bound.
void Session::takeLastOutput() {
    std::array<char, 4096> bytes;
    for (std::size_t taken = 0; taken < mostForPeer; taken += bytes.size()) {
        const ssize_t count = read(console_.terminal(), bytes.data(), bytes.size());
        if (count <= 0) return;
        toPeer({bytes.data(), static_cast<std::size_t>(count)});
    }
}

void Session::closeIfDelivered() {
    if (fromConsole_ || !fromPeer_ || fromPeer_->waiting() > 0) return;
    quiet_.stop();
    fromPeer_.reset();
    lingeringCloses_.close(std::move(peer_.socket));
    reportIfOver();
}

void Session::reportIfOver() {
    if (isOver()) onOver_();
}

}  // namespace host
