#include "host/launcher/telnet_stream.h"

#include "host/launcher/telnet_bytes.h"

#include <new>
#include <utility>

namespace host {
namespace {

constexpr telnet_telopt_t ourOptions[] = {
    {TELNET_TELOPT_ECHO, TELNET_WILL, TELNET_DONT}, {TELNET_TELOPT_SGA, TELNET_WILL, TELNET_DO}, {-1, 0, 0}};

}  // namespace

TelnetStream::TelnetStream(Kind kind) : kind_(kind), telnet_(nullptr, telnet_free) {
    const auto handler = [](telnet_t*, telnet_event_t* event, void* stream) {
        static_cast<TelnetStream*>(stream)->onEvent(*event);
    };
    telnet_.reset(telnet_init(ourOptions, handler, 0, this));
    if (telnet_ == nullptr) throw std::bad_alloc();
    if (kind_ == Kind::raw) return;
    telnet_negotiate(telnet_.get(), TELNET_WILL, TELNET_TELOPT_ECHO);
    telnet_negotiate(telnet_.get(), TELNET_WILL, TELNET_TELOPT_SGA);
}

std::string TelnetStream::decode(std::string_view fromPeer) {
    const std::string input = subnegotiations_.pass(fromPeer);
    telnet_recv(telnet_.get(), input.data(), input.size());
    return std::exchange(typed_, {});
}

std::string TelnetStream::encode(std::string_view fromConsole) {
    if (kind_ == Kind::raw) return std::string(fromConsole);
    telnet_send(telnet_.get(), fromConsole.data(), fromConsole.size());
    return takeReplies();
}

std::string TelnetStream::takeReplies() { return std::exchange(replies_, {}); }

void TelnetStream::onEvent(const telnet_event_t& event) {
    if (event.type == TELNET_EV_DATA) appendTyped({event.data.buffer, event.data.size});
    if (event.type == TELNET_EV_SEND && kind_ == Kind::negotiating) replies_.append(event.data.buffer, event.data.size);
}

void TelnetStream::appendTyped(std::string_view bytes) {
    for (const char byte : bytes) {
        const bool paddingOfReturn = afterReturn_ && byte == '\0';
        afterReturn_ = byte == '\r';
        if (!paddingOfReturn && byte != telnetIac) typed_ += byte;
    }
}

}  // namespace host
