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
#include <string_view>

namespace host {
namespace {

struct DestroyCompletion {
    void operator()(lpc_completion* completion) const { lpc_completion_destroy(completion); }
};
using OwnedCompletion = std::unique_ptr<lpc_completion, DestroyCompletion>;

constexpr char bootProtoPath[] = "network.eth0.bootProto";
constexpr char ipSettingsPath[] = "network.eth0.ipSettings";

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

std::string restartTelnet(const char* port) {
    std::string reply = moveTelnetPort(port);
    if (!reply.starts_with("ok")) note("the telnet port cannot move to %s: %s", port, reply.c_str());
    return reply;
}

/// Puts the address settings of `document` into effect. The store announces nothing for what is in effect already.
void putIntoEffect(const Json& document) {
    json_token* addresses = json_token_object_walk_get_object(document.get(), ipSettingsPath);
    if (addresses != nullptr) putStatus(ipSettingsPath, Json(json_object_get(addresses)));
}

Json configuredAddresses() {
    return Json(user_config_query_to_json_token(R"({"network":{"eth0":{"ipSettings":{}}}})"));
}

/// What the device's router hands out.
Json leasedAddresses() { return parseFirstJson(defaultStatus); }

void onSettingsChanged(const char* payload) {
    const Json document = parseFirstJson(payload);
    const std::string_view protocol = json_token_object_walk_get_string(document.get(), bootProtoPath, "");
    const bool isNewAddress = json_token_object_walk_get_object(document.get(), ipSettingsPath) != nullptr;
    if (protocol == "DHCP") putIntoEffect(leasedAddresses());
    if (protocol == "STATIC" || isNewAddress) putIntoEffect(configuredAddresses());
}

}  // namespace

Service makeNetwork(Daemon& daemon) {
    daemon.offer("TelnetRestart", restartTelnet);
    daemon.hear("networkUserConfigChanged", onSettingsChanged);
    if (settingText(bootProtoPath) == "STATIC") putIntoEffect(configuredAddresses());
    return nullptr;
}

}  // namespace host
