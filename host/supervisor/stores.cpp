#include "host/supervisor/stores.h"

#include "host/base/json.h"
#include "host/base/note.h"
#include "host/base/time_span.h"
#include "host/daemons/leaf_value.h"
#include "host/store/defaults.h"
#include "host/store/preparation.h"
#include "host/store/store.h"
#include "platform/json_token.h"
#include "platform/user_config.h"

#include <optional>
#include <string>

namespace host {
namespace {

std::string statusAtStart() {
    const Json status = parseExactJson(defaultStatus);
    const std::chrono::duration<double> now = timeOfDay();
    json_token_object_walk_set_object(status.get(), "time.status.bootUpTime", json_object_new_double(now.count()));
    return compactText(status.get());
}

}  // namespace

bool prepareStores() {
    const std::optional<std::string> news = prepareKeptStore(settingsKind, defaultSettings);
    if (news && !news->empty()) report("%s", news->c_str());
    if (!news) report("no usable settings store: %m");
    if (!news) return false;
    if (prepareFreshStore(statusKind, statusAtStart().c_str())) return true;
    report("no usable status store: %m");
    return false;
}

int storedTelnetPort(int fallback) { return settingNumber("network.telnet.telnetPort").value_or(fallback); }

void storeTelnetPort(int port) {
    if (port == storedTelnetPort(0)) return;
    const std::string document = R"({"network":{"telnet":{"telnetPort":)" + std::to_string(port) + "}}}";
    if (user_config_update(document.c_str()) != 0) report("the telnet port cannot be stored");
}

}  // namespace host
