#include "host/base/json.h"
#include "host/base/note.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/leaf_value.h"
#include "host/store/defaults.h"
#include "platform/json_token.h"
#include "platform/lpc.h"
#include "platform/user_config.h"

#include <cstring>
#include <memory>
#include <optional>
#include <string>

namespace host {
namespace {

struct DestroyCompletion {
    void operator()(lpc_completion* completion) const { lpc_completion_destroy(completion); }
};
using OwnedCompletion = std::unique_ptr<lpc_completion, DestroyCompletion>;

constexpr char ipSettingsPath[] = "network.eth0.ipSettings";
constexpr char telnetPortPath[] = "network.telnet.telnetPort";

/// Well below the time that the caller in turn waits for this daemon.
constexpr int launcherLimit = 1000;  // milliseconds

/// What the launcher says to a move of its telnet port: "ok", or "fail" and the reason.
std::string moveTelnetPort(const char* port) {
    lpc_completion* pending = nullptr;
    const bool sent = lpc_proxy_call_with_reply("telnetLauncher", "listen", port, &pending) == 0;
    const OwnedCompletion completion(pending);
    if (!sent || lpc_completion_wait(pending, launcherLimit) != 0) return std::string("fail ") + std::strerror(errno);
    const char* reply = lpc_completion_data(pending);
    return reply != nullptr ? reply : "fail no answer";
}

/// The stored port counts, whatever was asked for: a request that comes late, after another console's, changes nothing.
std::string restartTelnet(const char* asked) {
    const std::optional<int> stored = settingNumber(telnetPortPath);
    const std::string port = stored ? std::to_string(*stored) : asked;
    std::string reply = moveTelnetPort(port.c_str());
    if (!reply.starts_with("ok")) note("the telnet port cannot move to %s: %s", port.c_str(), reply.c_str());
    return reply;
}

/// Whole documents; what the device's router hands out stands among the defaults.
Json configuredAddresses() {
    return Json(user_config_query_to_json_token(R"({"network":{"eth0":{"ipSettings":{}}}})"));
}
Json leasedAddresses() { return parseFirstJson(defaultStatus); }

/// Puts the addresses that the settings ask for into effect; the store announces nothing where they are already.
void followSettings() {
    const bool isStatic = settingText("network.eth0.bootProto") == "STATIC";
    const Json document = isStatic ? configuredAddresses() : leasedAddresses();
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
