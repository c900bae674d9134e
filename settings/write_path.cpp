#include "settings/write_path.h"

#include "platform/event_bus.h"
#include "platform/user_config.h"
#include "text/text.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

using EventName = FixedText<64>;

/// The first key of {"audio":...} names the branch.
EventName changeEvent(const char* document) {
    EventName name;
    const char* branch = std::strchr(document, '"') + 1;
    name.append(branch, std::strcspn(branch, "\""));
    name.append("UserConfigChanged");
    return name;
}

void perrorPublishFailure(const EventName& event, const char* failureText) {
    if (failureText != nullptr) {
        std::perror(failureText);
        return;
    }
    const int error = errno;
    FixedText<128> text;
    text.appendFormat("publishEvent(%s SYSTEM_CMD_REQ_DEFAULT!)", event.c_str());
    errno = error;
    std::perror(text.c_str());
}

}  // namespace

void publishChange(const Document& document, const char* failureText) {
    const EventName event = changeEvent(document.c_str());
    if (eventbus_publish(event.c_str(), document.c_str()) != 0) perrorPublishFailure(event, failureText);
}

void perrorWriteFailure() { std::perror("user_config_update"); }

bool updateSettings(const Document& document) {
    if (document.isCut()) {
        errno = EMSGSIZE;
        return false;
    }
    return user_config_update(document.c_str()) == 0;
}

bool writeSetting(const Command& command, const Document& document, bool unchanged, const WriteRules& rules) {
    if (!updateSettings(document)) {
        rules.reportWriteFailure();
        return false;
    }
    if (unchanged && command.broadcast) publishChange(document, rules.publishFailureText);
    return !command.broadcast;
}

bool writeBoolean(const Command& command, bool value, const WriteRules& rules) {
    const bool unchanged = (readBoolean(command.leaf).value_or(0) != 0) == value;
    return writeSetting(command, fillBoolean(command.leaf, value), unchanged, rules);
}

bool writeInteger(const Command& command, int value, const WriteRules& rules) {
    const bool unchanged = readInteger(command.leaf).value_or(0) == value;
    return writeSetting(command, fillInteger(command.leaf, value), unchanged, rules);
}

bool writeText(const Command& command, const char* value, const WriteRules& rules) {
    const OwnedText old = readText(command.leaf);
    const bool unchanged = old && equals(old.get(), value);
    return writeSetting(command, fillText(command.leaf, value), unchanged, rules);
}
