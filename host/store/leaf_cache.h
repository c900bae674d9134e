/// Leaves that this process has read or written lately, so that asking for them again costs no system call while nobody
/// changes them.
#pragma once

#include "host/base/json.h"
#include "host/store/change_counters.h"
#include "host/store/document.h"

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace host {

/// Looks at a leaf, null where there is none, and says whether it is what was asked for.
using LeafReader = std::function<bool(json_object* leaf)>;

/// From any thread. Holds few leaves and forgets them all when it is full.
class LeafCache {
  public:
    /// The counter that speaks for a leaf, and its count when the leaf was read.
    struct Stamp {
        ChangeCounters::Index counter;
        ChangeCounters::Count count;
    };

    /// What `reader` says to the leaf that `query` names; nothing when it is not known or may have changed. No other
    /// thread reads meanwhile.
    std::optional<bool> read(std::string_view query, const ChangeCounters& changes, const LeafReader& reader);

    /// Nothing as `value` says that no leaf is there.
    void keep(const std::string& query, const std::string& path, Stamp stamp, std::optional<std::string> value);

    /// Follows a change of the process's own, if the leaf is one that it has asked for.
    void renew(const Leaf& leaf, Stamp stamp);

    /// Whether the leaf is known to stand in the store, as it is, at this moment.
    bool holds(const Leaf& leaf, const ChangeCounters& changes);

  private:
    struct Entry {
        bool isValid(const ChangeCounters& changes) const { return changes[stamp.counter] == stamp.count; }
        json_object* parsed();

        Stamp stamp = {};
        std::optional<std::string> text;
        Json value;  ///< made of the text when it is first asked for
    };
    template <typename Value>
    using TextMap = std::map<std::string, Value, std::less<>>;
    using KnownLeaf = TextMap<Entry>::value_type;

    std::mutex mutex_;  // of all that follows
    TextMap<Entry> leaves_;
    TextMap<KnownLeaf*> queries_;
};

}  // namespace host
