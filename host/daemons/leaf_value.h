/// Single leaves of the two stores, addressed by dotted paths.
#pragma once

#include "host/base/json.h"

#include <optional>
#include <string>

namespace host {

/// The settings' value at `path`; nothing where there is none of that type.
std::optional<std::string> settingText(const char* path);
std::optional<int> settingNumber(const char* path);
bool isSettingOn(const char* path);

/// Puts `value` at `path` in the status store; a refusal is noted in the log.
void putStatus(const char* path, Json value);
void putStatusFlag(const char* path, bool value);
void putStatusText(const char* path, const std::string& value);

}  // namespace host
