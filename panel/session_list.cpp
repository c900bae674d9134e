#include "panel/session_list.h"

#include "host/base/unix_address.h"
#include "host/launcher/observers.h"
#include "host/launcher/options.h"

#include <climits>
#include <sstream>
#include <utility>
#include <vector>

namespace panel {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;
constexpr auto retryTime = 500ms;

std::vector<std::string> wordsOf(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream text(line);
    for (std::string word; std::getline(text, word, '\t');) words.push_back(word);
    words.resize(5);
    return words;
}

host::UniqueFd connectToLauncher() {
    const host::UnixAddress address(host::observersPath());
    host::UniqueFd socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (connect(socket.get(), address.get(), address.size()) != 0) socket.reset();
    return socket;
}

void addText(json_object* object, const char* key, const std::string& text) {
    json_object_object_add(object, key, json_object_new_string_len(text.data(), static_cast<int>(text.size())));
}

json_object* describe(const Session& session) {
    json_object* object = json_object_new_object();
    addText(object, "port", session.port);
    addText(object, "peer", session.peer);
    addText(object, "since", session.since);
    addText(object, "lastCommand", session.lastCommand);
    return object;
}

}  // namespace

SessionList::SessionList(host::EventLoop& loop, host::Callback onChange,
                         std::function<void(const Session&, const std::string&)> onTyped)
    : loop_(loop), onChange_(std::move(onChange)), onTyped_(std::move(onTyped)), retry_(loop, [this] { start(); }) {}

void SessionList::start() {
    if (launcher_ != nullptr) return;
    socket_ = connectToLauncher();
    if (!socket_) return retry_.start(retryTime);
    launcher_ =
        std::make_unique<host::Channel>(loop_, socket_.get(), patience,
                                        host::Channel::Handlers{[this](const std::string& bytes) { take(bytes); },
                                                                [] {}, [this](host::Channel::End) { lose(); }});
}

void SessionList::stop() {
    retry_.stop();
    launcher_.reset();
    socket_.reset();
    sessions_.clear();
    arriving_.clear();
}

void SessionList::lose() {
    stop();
    onChange_();
    retry_.start(retryTime);
}

host::Json SessionList::list() const {
    host::Json list(json_object_new_array());
    for (const auto& [id, session] : sessions_) json_object_array_add(list.get(), describe(session));
    return list;
}

void SessionList::take(const std::string& bytes) {
    arriving_ += bytes;
    for (std::size_t end; (end = arriving_.find('\n')) != arriving_.npos; arriving_.erase(0, end + 1))
        takeLine(arriving_.substr(0, end));
    onChange_();
}

void SessionList::takeLine(const std::string& line) {
    const std::vector<std::string> words = wordsOf(line);
    const int id = host::parseNumber(words[1], 1, INT_MAX).value_or(0);
    if (words[0] == "open") sessions_[id] = {words[2], words[3], words[4], ""};
    if (words[0] == "close") sessions_.erase(id);
    if (words[0] != "typed") return;
    sessions_[id].lastCommand = words[2];
    onTyped_(sessions_[id], words[2]);
}

}  // namespace panel
