#include "host/daemons/daemon.h"
#include "host/daemons/daemons.h"
#include "host/daemons/leaf_value.h"

#include <algorithm>
#include <list>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr int failuresToLock = 5;
constexpr auto lockTime = 60s;
constexpr std::size_t mostClients = 100;

class Lockout {
  public:
    explicit Lockout(Daemon& daemon) : loop_(daemon.loop()) {
        daemon.offer("cgiLoginFailedMacaddr", [this](const char* id) { return countFailure(id); });
        daemon.offer("loginSuccessEvent", [this](const char* id) { return clear(id); });
        publish();
    }

  private:
    struct Client {
        Client(EventLoop& loop, std::string name, Callback unlock)
            : id(std::move(name)), locked(loop, std::move(unlock)) {}

        std::string id;
        int failures = 0;
        Timer locked;  // runs while the client is locked out
    };

    std::string countFailure(const std::string& id) {
        Client& client = clientOf(id);
        if (++client.failures == failuresToLock) client.locked.start(lockTime);
        publish();
        return "ok";
    }

    std::string clear(const std::string& id) {
        clients_.remove_if([&id](const Client& client) { return client.id == id; });
        publish();
        return "ok";
    }

    Client& clientOf(const std::string& id) {
        const auto known = std::find_if(clients_.begin(), clients_.end(), [&](const Client& c) { return c.id == id; });
        if (known != clients_.end()) return *known;
        makeRoom();
        return clients_.emplace_back(loop_, id, [this, id] { clear(id); });
    }

    /// Removes the oldest, but those that are locked out last: nobody ends a lockout by filling the list with other
    /// names.
    void makeRoom() {
        if (clients_.size() < mostClients) return;
        const auto open =
            std::find_if(clients_.begin(), clients_.end(), [](const Client& c) { return !c.locked.isRunning(); });
        clients_.erase(open != clients_.end() ? open : clients_.begin());
    }

    void publish() const {
        Json list(json_object_new_array());
        for (const Client& client : clients_) {
            json_object* entry = json_object_new_object();
            json_object_object_add(entry, "id", json_object_new_string(client.id.c_str()));
            json_object_object_add(entry, "isLock", json_object_new_boolean(client.locked.isRunning()));
            json_object_array_add(list.get(), entry);
        }
        putStatus("network.http.bruteForceAttacks.loginFailedList", std::move(list));
    }

    EventLoop& loop_;
    std::list<Client> clients_;
};

}  // namespace

Service makeBruteForceAttacksd(Daemon& daemon) { return std::make_shared<Lockout>(daemon); }

}  // namespace host
