#include "host/daemons/transmitter.h"

#include "host/base/note.h"
#include "host/daemons/daemon.h"
#include "host/daemons/leaf_value.h"
#include "platform/event_bus.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto waitTime = 5s;

/// How long the next piece of a paced command may be on its way from the console.
constexpr auto quietTime = 100ms;

constexpr std::size_t mostWaiting = 64;

constexpr std::pair<const char*, const char*> actions[] = {
    {"on", "on"}, {"off", "off"}, {"mute", "mute"}, {"vol+", "volumePlus"}, {"vol-", "volumeMinus"}};

/// Below the display's trigger settings.
std::string commandPath(const std::string& leaf) { return "control.displayControl.output1.triger.command." + leaf; }

/// A paced content goes out in the pieces between its commas, which are waits.
std::vector<std::string> piecesOf(const std::string& content, bool isPaced) {
    if (!isPaced) return {content};
    std::vector<std::string> pieces;
    std::string piece;
    std::istringstream words(content);
    for (std::string word; words >> word;) {
        if (word != "2c") {
            piece += (piece.empty() ? "" : " ") + word;
        } else if (!piece.empty()) {
            pieces.push_back(std::exchange(piece, {}));
        }
    }
    pieces.push_back(piece);
    return pieces;
}

/// The action whose stored content was sent in these texts, each with its end; empty when it is none of them. Of
/// contents that begin alike the longest counts.
std::string actionOf(const std::vector<std::string>& texts) {
    const bool isPaced = isSettingOn(commandPath("commandWait").c_str());
    const auto beginsWith = [](const std::string& text, const std::string& piece) { return text.starts_with(piece); };
    std::string action, longest;
    for (const auto& [name, key] : actions) {
        const std::string content = settingText(commandPath(std::string("content.") + key).c_str()).value_or("");
        const std::vector<std::string> pieces = piecesOf(content, isPaced);
        const bool isSent = std::equal(texts.begin(), texts.end(), pieces.begin(), pieces.end(), beginsWith);
        if (!isSent || content.size() <= longest.size()) continue;
        action = name;
        longest = content;
    }
    return action;
}

}  // namespace

Transmitter::Transmitter(Daemon& daemon, const char* command, const char* busyPath)
    : command_(command),
      busyPath_(busyPath),
      wait_(daemon.loop(), [this] { send(); }),
      quiet_(daemon.loop(), [this] { becomeIdle(); }) {
    daemon.offer("SetCmdOn", [this](const char* text) { return accept(text); });
    // Of a daemon that died while it was sending.
    putStatusFlag(busyPath_, false);
}

/// The transport is busy before its caller is answered.
std::string Transmitter::accept(const char* text) {
    std::optional<TriggerRequest> request = parseTriggerRequest(text);
    if (!request) return "fail not a request";
    if (waiting_.size() >= mostWaiting) return "fail busy";
    waiting_.push_back(std::move(*request));
    if (isBusy_ && !quiet_.isRunning()) return "ok";
    quiet_.stop();
    if (!isBusy_) putStatusFlag(busyPath_, true);
    isBusy_ = true;
    startNext();
    return "ok";
}

void Transmitter::startNext() {
    if (waiting_.empty()) return quiet_.start(quietTime);
    current_ = std::move(waiting_.front());
    waiting_.pop_front();
    if (current_.isLeading && !sent_.empty()) endCommand();
    wait_.start(current_.waits * waitTime);
}

void Transmitter::send() {
    note("%s sends %d times %s", command_, current_.sendCount, describeBytes(current_.bytes).c_str());
    sent_.push_back(current_.text);
    std::string bytes;
    for (int i = 0; i < current_.sendCount; ++i) bytes += current_.bytes;
    transmit(bytes);
}

void Transmitter::endCommand() {
    hangUp();
    const std::string action = actionOf(std::exchange(sent_, {}));
    if (action.empty()) return note("%s sent no stored string", command_);
    const std::string feedback = std::string(command_) + " " + action;
    if (eventbus_publish("CommandFeedback", feedback.c_str()) != 0) note("CommandFeedback %s: %m", feedback.c_str());
}

/// The transport is free before its command is announced, so that the next one can be sent at once.
void Transmitter::becomeIdle() {
    putStatusFlag(busyPath_, false);
    isBusy_ = false;
    endCommand();
}

}  // namespace host
