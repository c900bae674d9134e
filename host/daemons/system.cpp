#include "host/base/json.h"
#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/leaf_value.h"
#include "host/daemons/time_scale.h"
#include "platform/json_token.h"
#include "platform/user_config.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto updateTime = 10s;
constexpr char updatePath[] = "system.update.progressEvent.isOn";

constexpr std::string_view ownUsers[] = {"root", "daemon", "bin", "sys", "sshd", "nobody"};

bool isOwnUser(std::string_view name) {
    return std::find(std::begin(ownUsers), std::end(ownUsers), name) != std::end(ownUsers);
}

/// The accounts that had been added when the device started.
std::vector<std::string> readUsers() {
    std::vector<std::string> users;
    const Json accounts(user_config_query_to_json_token(R"({"account":{}})"));
    json_token* list = json_token_object_walk_get_array(accounts.get(), "account.users");
    for (int i = 0; i < json_token_array_length(list); ++i) {
        const std::string path = "account.users[" + std::to_string(i) + "].username";
        users.emplace_back(json_token_object_walk_get_string(accounts.get(), path.c_str(), ""));
    }
    return users;
}

class System {
  public:
    explicit System(Daemon& daemon) : users_(readUsers()), updated_(daemon.loop(), [] { setUpdating(false); }) {
        daemon.offer("sshAddUser", [this](const char* account) { return addUser(account); });
        daemon.offer("sshDelUser", [this](const char* name) { return deleteUser(name); });
        daemon.offer("sshUpdate", [this](const char* word) { return update(word); });
        setUpdating(false);
    }

  private:
    static void setUpdating(bool on) { putStatusFlag(updatePath, on); }

    std::string addUser(const char* account) {
        const Json document = parseFirstJson(account);
        const std::string name = json_token_object_walk_get_string(document.get(), "username", "");
        if (name.empty()) return "fail no name";
        if (isOwnUser(name) || std::find(users_.begin(), users_.end(), name) != users_.end()) {
            return "fail " + name + " exists";
        }
        users_.push_back(name);
        return "ok";
    }

    std::string deleteUser(const char* name) { return std::erase(users_, name) > 0 ? "ok" : "fail no such user"; }

    std::string update(const char* word) {
        if (std::string_view(word) != "On" || updated_.isRunning()) return "ok";
        setUpdating(true);
        updated_.start(scaled(updateTime));
        return "ok";
    }

    std::vector<std::string> users_;
    Timer updated_;
};

}  // namespace

Service makeSystem(Daemon& daemon) { return std::make_shared<System>(daemon); }

}  // namespace host
