/// What happens to the stores before any process of the device uses them.
#pragma once

#include <optional>
#include <string>

namespace host {

/// Makes the settings store ready: missing leaves get their value from `defaults`, a damaged file is set aside as
/// "settings.db.corrupt-<time>" and a new one made. Returns what the run's log should say of it, mostly nothing; no
/// value with errno set when there is no usable store.
std::optional<std::string> prepareSettings(const char* defaults);

/// Makes a new status store of `document`. False with errno set on failure.
bool prepareStatus(const char* document);

}  // namespace host
