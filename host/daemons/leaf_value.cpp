#include "host/daemons/leaf_value.h"

#include "host/base/note.h"
#include "platform/json_token.h"
#include "platform/user_config.h"
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

}  // namespace

std::optional<std::string> settingText(const char* path) {
    char* text = nullptr;
    const bool found = user_config_query_string(documentOf(path, Json(json_object_new_string(""))).c_str(), &text) != 0;
    const OwnedText owned(text);
    return found ? std::optional<std::string>(text) : std::nullopt;
}

std::optional<int> settingNumber(const char* path) {
    int number = 0;
    const bool found = user_config_query_int(documentOf(path, Json(json_object_new_int(0))).c_str(), &number) != 0;
    return found ? std::optional<int>(number) : std::nullopt;
}

bool isSettingOn(const char* path) {
    int on = 0;
    user_config_query_boolean(documentOf(path, Json(json_object_new_boolean(0))).c_str(), &on);
    return on == 1;
}

void putStatus(const char* path, Json value) {
    if (user_status_update(documentOf(path, std::move(value)).c_str()) == 0) return;
    note("status store: %s: %s", path, std::strerror(errno));
}

void putStatusFlag(const char* path, bool value) { putStatus(path, Json(json_object_new_boolean(value ? 1 : 0))); }

void putStatusText(const char* path, const std::string& value) {
    putStatus(path, Json(json_object_new_string_len(value.data(), static_cast<int>(value.size()))));
}

}  // namespace host
