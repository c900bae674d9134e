#include "host/base/factory_store.h"
#include "host/base/json.h"
#include "host/base/note.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/leaf_value.h"
#include "platform/factory_data.h"
#include "platform/json_token.h"
#include "platform/user_config.h"
#include "text/owned_text.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <strings.h>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto updateTime = 3s;
constexpr char updatePath[] = "system.update.progressEvent.isOn";
constexpr char versionKey[] = "FirmwareVer";

constexpr std::string_view ownUsers[] = {"root", "daemon", "bin", "sys", "sshd", "nobody"};

/// Whether the console keeps an account of that name, compared as the console does.
bool isStored(const char* name) {
    const Json accounts(user_config_query_to_json_token(R"({"account":{}})"));
    const int count = json_token_array_length(json_token_object_walk_get_array(accounts.get(), "account.users"));
    for (int i = 0; i < count; ++i) {
        const std::string path = "account.users[" + std::to_string(i) + "].username";
        if (strcasecmp(json_token_object_walk_get_string(accounts.get(), path.c_str(), ""), name) == 0) return true;
    }
    return false;
}

/// The SSH users are the stored accounts, so that no reset and no lost call can make them differ.
std::string addUser(const char* account) {
    const Json document = parseFirstJson(account);
    const char* name = json_token_object_walk_get_string(document.get(), "username", "");
    if (std::ranges::count(ownUsers, name) > 0) return std::string("fail ") + name + " exists";
    return isStored(name) ? "ok" : std::string("fail no account ") + name;
}

std::string deleteUser(const char* name) {
    return isStored(name) ? std::string("fail still an account ") + name : "ok";
}

/// "1.0.2" for "1.0.1".
std::string versionAfter(const std::string& version) {
    const std::size_t last = version.rfind('.') + 1;
    return version.substr(0, last) + std::to_string(std::strtoul(version.c_str() + last, nullptr, 10) + 1);
}

void installNextVersion() {
    char* version = nullptr;
    factory_read_data(versionKey, &version);
    const OwnedText owned(version);
    if (!writeFactoryData(versionKey, versionAfter(version != nullptr ? version : "").c_str())) note("no update: %m");
}

class Systemd {
  public:
    explicit Systemd(Daemon& daemon) : updated_(daemon.loop(), endUpdate) {
        daemon.offer("sshAddUser", addUser);
        daemon.offer("sshDelUser", deleteUser);
        daemon.offer("sshUpdate", [this](const char* word) { return update(word); });
        setUpdating(false);
    }

  private:
    static void setUpdating(bool on) { putStatusFlag(updatePath, on); }

    static void endUpdate() {
        installNextVersion();
        setUpdating(false);
    }

    std::string update(const char* word) {
        if (std::string_view(word) != "On" || updated_.isRunning()) return "ok";
        setUpdating(true);
        updated_.start(updateTime);
        return "ok";
    }

    Timer updated_;
};

}  // namespace

Service makeSystemd(Daemon& daemon) { return std::make_shared<Systemd>(daemon); }

}  // namespace host
