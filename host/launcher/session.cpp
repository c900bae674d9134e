#include "host/launcher/session.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <string_view>
#include <unistd.h>

namespace host {
namespace {

using namespace std::chrono_literals;
using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Output that may wait for a peer before its console is no longer read, and the same for a console's input.
constexpr std::size_t mostForPeer = 65'536;
constexpr std::size_t mostForConsole = 65'536;

/// A console that has read nothing of what waits for it in that time hangs.
constexpr auto consolePatience = 30s;

/// From SIGHUP or SIGTERM to SIGKILL.
constexpr auto endPatience = 2s;

/// When the peer has ended its input, the console is done with it once it has said nothing for that long.
constexpr auto quietTime = 300ms;
constexpr auto mostDraining = 10s;

}  // namespace

Session::Session(EventLoop& loop, Peer peer, ConsoleProcess console, TelnetStream::Kind kind, Farewells& farewells,
                 milliseconds peerPatience, Callback onOver)
    : stream_(kind),
      peer_(std::move(peer)),
      console_(std::move(console)),
      farewells_(farewells),
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
                    partIfDelivered();
                },
            .onEnd = [this](Channel::End end) { end == Channel::End::input ? startDraining() : hangUp(); }};
}

Channel::Handlers Session::consoleHandlers() {
    return {.onInput = [this](const std::string& bytes) { toPeer(stream_.encode(bytes)); },
            .onDrained = [this] { fromPeer_->resumeInput(); },
            .onEnd =
                [this](Channel::End) {
                    kill_.start(endPatience);
                    closeConsole();
                }};
}

void Session::toConsole(const std::string& typed) {
    fromPeer_->send(stream_.takeReplies());
    if (!fromConsole_) return;
    fromConsole_->send(typed);
    if (fromConsole_->waiting() > mostForConsole) fromPeer_->pauseInput();
}

void Session::toPeer(const std::string& bytes) {
    fromPeer_->send(bytes);
    if (fromPeer_->waiting() > mostForPeer) fromConsole_->pauseInput();
    if (quiet_.isRunning()) awaitQuiet();
}

void Session::startDraining() {
    drainingEnd_ = steady_clock::now() + mostDraining;
    awaitQuiet();
}

void Session::awaitQuiet() {
    const auto left = duration_cast<milliseconds>(drainingEnd_ - steady_clock::now());
    quiet_.start(std::clamp<milliseconds>(left, 0ms, quietTime));
}

void Session::onQuiet() {
    if (isAnswering() && steady_clock::now() < drainingEnd_) {
        awaitQuiet();
    } else {
        hangUp();
    }
}

bool Session::isAnswering() const {
    const bool isReading = fromConsole_ && (fromConsole_->waiting() > 0 || console_.unreadBytes() > 0);
    return isReading || fromPeer_->waiting() > 0;
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
    partIfDelivered();
}

/// A program that the console has left behind may hold the terminal open and write on, so there is a bound.
void Session::takeLastOutput() {
    std::array<char, 4096> bytes;
    for (std::size_t taken = 0; taken < mostForPeer; taken += bytes.size()) {
        const ssize_t count = read(console_.terminal(), bytes.data(), bytes.size());
        if (count <= 0) return;
        fromPeer_->send(stream_.encode({bytes.data(), static_cast<std::size_t>(count)}));
    }
}

void Session::partIfDelivered() {
    if (fromConsole_ || !fromPeer_ || fromPeer_->waiting() > 0) return;
    quiet_.stop();
    fromPeer_.reset();
    farewells_.say(std::move(peer_.socket));
    reportIfOver();
}

void Session::reportIfOver() {
    if (isOver()) onOver_();
}

}  // namespace host
