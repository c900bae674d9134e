/// A device root of the test program's own, removed when it ends, and the stores that the tests make in it.
#pragma once

#include "host/store/store.h"

#include <string>
#include <vector>

/// A kind that no other test uses: its files have names of their own.
host::StoreKind newKind(host::Durability durability = host::Durability::process);

/// The same, with a store of `content` in place.
host::StoreKind newStore(const char* content, host::Durability durability = host::Durability::process);

/// All that has been logged so far.
std::string logText();

/// What this process has published since the last call, each as "event payload". The tests have no bus.
std::vector<std::string> takePublished();
