#include "host/base/device_process.h"
#include "host/base/json.h"
#include "host/base/note.h"
#include "host/base/start_port.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/store/defaults.h"
#include "host/store/store.h"
#include "platform/event_bus.h"
#include "platform/json_token.h"

#include <csignal>
#include <string>
#include <string_view>

namespace host {
namespace {

using namespace std::chrono_literals;

/// Time for the consoles to show the announcement.
constexpr auto graceTime = 1s;

constexpr char upgradeEvent[] = "UpgradeSlaveVersionQuery";

/// The defaults, on the telnet port that the device was given on its command line.
std::string settingsAfterReset() {
    const Json settings = parseExactJson(defaultSettings);
    const int port = readStartPorts().given;
    if (port != 0)
        json_token_object_walk_set_object(settings.get(), "network.telnet.telnetPort", json_object_new_int(port));
    return compactText(settings.get());
}

class Upgrade {
  public:
    explicit Upgrade(Daemon& daemon) : restart_(daemon.loop(), restartDevice) {
        daemon.subscribe(upgradeEvent, [this](const char* state) { onState(state); });
    }

  private:
    void onState(std::string_view state) {
        if (state == "Sys Default\r") resetDevice();
        if (state == "Sys Reboot\r") announceRestart();
    }

    static void resetDevice() {
        note(settingsStore().replaceAll(settingsAfterReset().c_str()) ? "the settings are the default ones"
                                                                      : "the settings cannot be reset: %m");
    }

    void announceRestart() {
        if (eventbus_publish(upgradeEvent, "Web Reboot\r") != 0) note("the restart cannot be announced: %m");
        restart_.start(graceTime);
    }

    static void restartDevice() {
        note("the device restarts");
        if (!signalDevice(SIGUSR1)) note("the device cannot be restarted: %m");
    }

    Timer restart_;
};

}  // namespace

Service makeUpgrade(Daemon& daemon) { return std::make_shared<Upgrade>(daemon); }

}  // namespace host
