/// What happens to the stores before any process of the device uses them.
#pragma once

#include "host/store/store.h"

#include <optional>
#include <string>

namespace host {

/// Makes a store ready that is kept from one start to the next: leaves that are missing get their value from
/// `defaults`, a damaged file is set aside as "settings.db.corrupt-<time>" and a new one made. Returns what the run's
/// log should say of it, mostly nothing; no value with errno set when there is no usable store.
std::optional<std::string> prepareKeptStore(const StoreKind& kind, const char* defaults);

/// Makes a store that starts anew with `content`. False with errno set on failure.
bool prepareFreshStore(const StoreKind& kind, const char* content);

}  // namespace host
