#include "host/launcher/observers.h"

#include "host/base/device_root.h"
#include "host/base/unix_address.h"
#include "host/base/visible_text.h"

#include <cstdio>
#include <ctime>
#include <sys/stat.h>
#include <unistd.h>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 5s;
constexpr std::size_t mostObservers = 8;
constexpr std::size_t mostWaiting = std::size_t{256} * 1024;
constexpr std::size_t longestLine = 1024;

std::string line(std::initializer_list<std::string> words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : "\t") + word;
    return text + "\n";
}

}  // namespace

std::string observersPath() { return inRoot("sessions"); }

Observers::Observers(EventLoop& loop) : loop_(loop) {
    const std::string path = observersPath();
    const UnixAddress address(path);
    unlink(path.c_str());
    listener_ =
        Listener::openAt(loop, address.get(), address.size(), [this](Peer peer) { admit(std::move(peer.socket)); });
    if (listener_ && chmod(path.c_str(), S_IRUSR | S_IWUSR) == 0) return;
    std::perror("launcher: observers");
    listener_.reset();
}

void Observers::admit(UniqueFd socket) {
    if (observers_.size() >= mostObservers) return;
    const auto leave = [this, fd = socket.get()](Channel::End) { forget(fd); };
    auto channel = std::make_unique<Channel>(loop_, socket.get(), patience,
                                             Channel::Handlers{[](const std::string&) {}, [] {}, leave});
    for (const auto& [id, session] : sessions_) channel->send(session.opening);
    observers_.push_back({std::move(socket), std::move(channel)});
}

void Observers::send(const std::string& line) {
    for (const Observer& observer : observers_) observer.channel->send(line);
    observers_.remove_if([](const Observer& observer) { return observer.channel->waiting() > mostWaiting; });
}

void Observers::forget(int socket) {
    observers_.remove_if([socket](const Observer& observer) { return observer.socket.get() == socket; });
}

int Observers::opened(const Peer& peer) {
    const std::string id = std::to_string(++lastId_);
    const std::string opening =
        line({"open", id, std::to_string(peer.port), peer.address, std::to_string(std::time(nullptr))});
    sessions_[lastId_] = {opening, ""};
    send(opening);
    return lastId_;
}

void Observers::closed(int session) {
    sessions_.erase(session);
    send(line({"close", std::to_string(session)}));
}

void Observers::typed(int session, std::string_view bytes) {
    std::string& typed = sessions_[session].line;
    if (observers_.empty()) return typed.clear();
    for (const char byte : bytes) {
        if (byte != '\r' && byte != '\n') {
            if (typed.size() < longestLine) typed += byte;
        } else if (!typed.empty()) {
            send(line({"typed", std::to_string(session), visibleText(typed)}));
            typed.clear();
        }
    }
}

}  // namespace host
