/// Values of leaves that were read lately, so that a reply costs no system call while nothing changes.
#pragma once

#include "console/mutex.h"
#include "host/base/json.h"
#include "host/store/change_counters.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace host {

/// Looks at a leaf, null where there is none, and says whether it is what was asked for.
using LeafReader = std::function<bool(json_object* leaf)>;

/// From any thread. Holds few values and forgets them all when it is full.
class LeafCache {
  public:
    /// The counter that speaks for a leaf, and its count when the leaf was read.
    struct Stamp {
        ChangeCounters::Index counter;
        ChangeCounters::Count count;
    };

    /// What `reader` says to the value that `query` had; nothing when it is not known or may have changed. No other
    /// thread reads meanwhile.
    std::optional<bool> read(std::string_view query, const ChangeCounters& changes, const LeafReader& reader);

    void keep(const std::string& query, Stamp stamp, Json value);

  private:
    struct Entry {
        Stamp stamp;
        Json value;
    };
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    Mutex mutex_;
    std::unordered_map<std::string, Entry, Hash, std::equal_to<>> entries_ GUARDED_BY(mutex_);
};

}  // namespace host
