#include "panel/display.h"

#include "platform/user_config.h"
#include "text/owned_text.h"

#include <arpa/inet.h>
#include <cerrno>
#include <netinet/in.h>

namespace panel {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 5s;
constexpr std::size_t mostCallers = 16;
constexpr char answerText[] = "OK\r";

std::string storedAddress() {
    char* text = nullptr;
    user_config_query_string(R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"ipAddr":""}}}}})",
                             &text);
    const OwnedText owned(text);
    return text != nullptr ? text : "";
}

int storedPort() {
    int port = 0;
    user_config_query_int(R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"port":0}}}}})", &port);
    return port;
}

bool refuse(int error) {
    errno = error;
    return false;
}

}  // namespace

bool Display::set(const std::string& state) {
    callers_.clear();
    listener_.reset();
    onlyCaller_.reset();
    unanswered_.reset();
    state_ = "refuses";
    if (state != "refuses" && state != "answers" && state != "off") return refuse(EINVAL);
    if (state != "refuses" && !storedAddress().starts_with("127.")) return refuse(EADDRNOTAVAIL);
    if (state == "answers" && !listen()) return false;
    if (state == "off" && !stopAnswering()) return false;
    state_ = state;
    return true;
}

bool Display::listen() {
    const auto admitCaller = [this](host::Peer peer) { admit(std::move(peer)); };
    listener_ = host::Listener::open(loop_, storedAddress(), storedPort(), admitCaller);
    return listener_ != nullptr;
}

/// A queue that holds one caller and is never looked at: the system lets every further call go unanswered.
bool Display::stopAnswering() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(storedPort()));
    inet_pton(AF_INET, storedAddress().c_str(), &address.sin_addr);
    const auto* name = reinterpret_cast<const sockaddr*>(&address);
    const int reuse = 1;
    unanswered_ = host::UniqueFd(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    onlyCaller_ = host::UniqueFd(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    setsockopt(unanswered_.get(), SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse);
    if (bind(unanswered_.get(), name, sizeof address) != 0 || ::listen(unanswered_.get(), 0) != 0) return false;
    return connect(onlyCaller_.get(), name, sizeof address) == 0 || errno == EINPROGRESS;
}

void Display::admit(host::Peer peer) {
    if (callers_.size() >= mostCallers) return;
    const int fd = peer.socket.get();
    const auto leave = [this, fd](host::Channel::End) {
        callers_.remove_if([fd](const Caller& caller) { return caller.socket.get() == fd; });
    };
    auto channel = std::make_unique<host::Channel>(
        loop_, fd, patience,
        host::Channel::Handlers{[this, fd](const std::string& bytes) { answer(fd, bytes); }, [] {}, leave});
    callers_.push_back({std::move(peer.socket), std::move(channel)});
}

void Display::answer(int socket, const std::string& bytes) {
    onTraffic_("display receives", bytes);
    for (const Caller& caller : callers_)
        if (caller.socket.get() == socket) caller.channel->send(answerText);
    onTraffic_("display answers", answerText);
}

}  // namespace panel
