/// Serves the front panel of a device to browsers.
#include "host/base/readiness.h"
#include "host/base/version.h"
#include "host/launcher/options.h"
#include "host/loop/event_loop.h"
#include "panel/http_server.h"
#include "panel/panel.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <sys/resource.h>

namespace panel {
namespace {

using namespace std::chrono_literals;

constexpr int usageStatus = 2;

/// The consoles go first when the machine is busy.
constexpr int niceness = 10;

constexpr auto retryTime = 2s;

/// The panel's address, which another program may hold at the moment.
class Place {
  public:
    Place(host::EventLoop& loop, HttpServer& server, std::string address, int port)
        : server_(server), address_(std::move(address)), port_(port), retry_(loop, [this] { takeLater(); }) {}

    /// The device does not wait: the panel is ready whether it has the port or not.
    void take() {
        if (server_.listen(address_, port_)) return host::announceReady(url());
        std::fprintf(stderr, "panel: no panel on %s %d while that is so: %s\n", address_.c_str(), port_,
                     std::strerror(errno));
        host::announceReady("");
        retry_.start(retryTime);
    }

  private:
    void takeLater() {
        if (!server_.listen(address_, port_)) return retry_.start(retryTime);
        std::fprintf(stderr, "%s\n", url().c_str());
    }

    std::string url() const {
        const bool isIpv6 = address_.find(':') != address_.npos;
        return "panel: http://" + (isIpv6 ? "[" + address_ + "]" : address_) + ":" + std::to_string(port_);
    }

    HttpServer& server_;
    const std::string address_;
    const int port_;
    host::Timer retry_;
};

int serve(const std::string& address, int port, const std::string& consoleAddress) {
    host::EventLoop loop;
    Panel panel(loop, consoleAddress);
    HttpServer server(loop, [&panel](const Request& request) { panel.serve(request); });
    Place place(loop, server, address, port);
    const host::SignalWatch onTerminate(loop, SIGTERM, [&loop] { loop.stop(); });
    place.take();
    loop.run();
    return 0;
}

}  // namespace
}  // namespace panel

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--version") return host::printVersion();
    const std::optional<int> port = argc == 4 ? host::parseNumber(argv[2], 1, host::highestPort) : std::nullopt;
    if (!port) {
        std::fprintf(stderr, "usage: %s ADDR PORT CONSOLE-ADDR\n", argv[0]);
        return panel::usageStatus;
    }
    std::signal(SIGPIPE, SIG_IGN);
    setpriority(PRIO_PROCESS, 0, panel::niceness);
    return panel::serve(argv[1], *port, argv[3]);
}
