#include "host/daemons/leaf_value.h"

#include "host/base/note.h"
#include "host/store/store.h"
#include "platform/json_token.h"
#include "platform/user_status.h"
#include "text/owned_text.h"

#include <cerrno>
#include <cstring>

namespace host {
namespace {

/// {"a":{"b":VALUE}} for "a.b".
std::string documentOf(const char* path, Json value) {
    const Json document(json_token_new_object());
    json_token_object_walk_set_object(document.get(), path, value.release());
    return compactText(document.get());
}

/// What `convert` makes of the settings' value at `path`.
template <typename Value>
std::optional<Value> setting(const char* path, bool (*convert)(json_object* leaf, Value* value)) {
    Value value{};
    const bool isFound = settingsStore().readLeaf(documentOf(path, nullptr).c_str(), convert, &value) != 0;
    return isFound ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<std::string> settingText(const char* path) {
    const OwnedText text(setting(path, readString).value_or(nullptr));
    return text ? std::optional<std::string>(text.get()) : std::nullopt;
}

std::optional<int> settingNumber(const char* path) { return setting(path, readInt); }

bool isSettingOn(const char* path) { return setting(path, readBoolean) == 1; }

void putStatus(const char* path, Json value) {
    if (user_status_update(documentOf(path, std::move(value)).c_str()) == 0) return;
    note("status store: %s: %s", path, std::strerror(errno));
}

void putStatusFlag(const char* path, bool value) { putStatus(path, Json(json_object_new_boolean(value ? 1 : 0))); }

void putStatusText(const char* path, const std::string& value) {
    putStatus(path, Json(json_object_new_string_len(value.data(), static_cast<int>(value.size()))));
}

}  // namespace host
