/// What the processes of a device share about a store, beside its database: a file that each of them maps.
#pragma once

#include "host/store/change_counters.h"
#include "host/store/write_lock.h"

#include <string>

namespace host {

struct SharedState {
    WriteLock writeLock;
    ChangeCounters changes;
};

/// Puts a new state at `path`. Processes that still have the last one keep it to themselves. False with errno set.
bool makeSharedState(const std::string& path);

/// Maps the state at `path` for as long as the process lives. Null with errno set.
SharedState* mapSharedState(const std::string& path);

}  // namespace host
