#include "host/base/json.h"
#include "host/base/note.h"
#include "host/bus/bus_extensions.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/leaf_value.h"
#include "host/store/defaults.h"
#include "platform/json_token.h"
#include "platform/user_config.h"

#include <cerrno>
#include <cstring>
#include <optional>
#include <string>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr char ipSettingsPath[] = "network.eth0.ipSettings";
constexpr char telnetPortPath[] = "network.telnet.telnetPort";

/// Well below the time that the caller in turn waits for this daemon.
constexpr auto launcherLimit = 1s;

/// The stored port counts, whatever was asked for: a request that comes late, after another console's, changes nothing.
std::string restartTelnet(const char* asked) {
    const std::optional<int> stored = settingNumber(telnetPortPath);
    const std::string port = stored ? std::to_string(*stored) : asked;
    const std::optional<std::string> answer = replyTo("telnetLauncher", "listen", port.c_str(), launcherLimit);
    const std::string reply = answer ? *answer : std::string("fail ") + std::strerror(errno);
    if (!reply.starts_with("ok")) note("the telnet port cannot move to %s: %s", port.c_str(), reply.c_str());
    return reply;
}

/// Puts the addresses that the settings ask for into effect; the store announces nothing where they are already. The
/// simulated DHCP lease is in the default status.
void followSettings() {
    const bool isStatic = settingText("network.eth0.bootProto") == "STATIC";
    const Json document = isStatic ? Json(user_config_query_to_json_token(R"({"network":{"eth0":{"ipSettings":{}}}})"))
                                   : parseFirstJson(defaultStatus);
    json_token* addresses = json_token_object_walk_get_object(document.get(), ipSettingsPath);
    if (addresses != nullptr) putStatus(ipSettingsPath, Json(json_object_get(addresses)));
}

}  // namespace

Service makeNetworkd(Daemon& daemon) {
    daemon.offer("TelnetRestart", restartTelnet);
    daemon.subscribe("networkUserConfigChanged", [](const char* /*changes*/) { followSettings(); });
    followSettings();
    return nullptr;
}

}  // namespace host
