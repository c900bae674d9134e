#include "host/base/note.h"
#include "host/base/unique_fd.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/leaf_value.h"
#include "host/daemons/transmitter.h"
#include "host/loop/channel.h"

#include <cerrno>
#include <cstring>
#include <event2/util.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace host {
namespace {

using namespace std::chrono_literals;

/// How long the display may take to let the connection in, and to take what is sent.
constexpr auto patience = 2s;

/// "192.0.2.7:5000".
std::string displayAddress() {
    const auto host = settingText("control.displayControl.output1.remoteNetworkDevice.ipAddr");
    const auto port = settingNumber("control.displayControl.output1.remoteNetworkDevice.port");
    return host.value_or("") + ":" + std::to_string(port.value_or(0));
}

/// A socket on its way to the display; none where there is no way at all.
UniqueFd beginToConnect() {
    sockaddr_in address{};
    auto* const name = reinterpret_cast<sockaddr*>(&address);
    int size = sizeof address;
    if (evutil_parse_sockaddr_port(displayAddress().c_str(), name, &size) != 0) {
        note("the display has no address");
        return {};
    }
    UniqueFd display(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (connect(display.get(), name, sizeof address) == 0 || errno == EINPROGRESS) return display;
    note("the display cannot be reached: %m");
    return {};
}

/// One connection for each command, so that the display sees its pieces together.
class NetworkLine : public Transmitter {
  public:
    explicit NetworkLine(Daemon& daemon)
        : Transmitter(daemon, "TrigIP1", "control.displayControl.output1.transmission.telnet"),
          loop_(daemon.loop()),
          later_(daemon.loop(), [this] { startNext(); }) {}

  private:
    void transmit(const std::string& bytes) override {
        if (!channel_) connectToDisplay();
        if (!channel_ || bytes.empty()) return later_.start(0ms);
        channel_->send(bytes);
    }

    void hangUp() override {
        channel_.reset();
        display_.reset();
    }

    void connectToDisplay() {
        display_ = beginToConnect();
        if (!display_) return;
        const auto onAnswer = [](const std::string& bytes) {
            note("display answers %s", describeBytes(bytes).c_str());
        };
        const auto onEnd = [this](Channel::End end) { loseDisplay(end); };
        channel_ = std::make_unique<Channel>(loop_, display_.get(), patience,
                                             Channel::Handlers{onAnswer, [this] { startNext(); }, onEnd});
    }

    void loseDisplay(Channel::End end) {
        // A display that says nothing more may still listen.
        if (end == Channel::End::input) return;
        const bool wasWaiting = channel_->waiting() > 0;
        note("the display does not listen: %s", std::strerror(errno));
        hangUp();
        if (wasWaiting) startNext();
    }

    EventLoop& loop_;
    UniqueFd display_;
    std::unique_ptr<Channel> channel_;
    Timer later_;
};

}  // namespace

Service makeDisplayControlTelnetClient(Daemon& daemon) { return std::make_shared<NetworkLine>(daemon); }

}  // namespace host
