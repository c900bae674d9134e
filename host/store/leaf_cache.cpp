#include "host/store/leaf_cache.h"

namespace host {
namespace {

constexpr std::size_t mostEntries = 128;

/// Longer queries are somebody's own; no command asks them twice.
constexpr std::size_t longestQuery = 256;

}  // namespace

std::optional<bool> LeafCache::read(std::string_view query, const ChangeCounters& changes, const LeafReader& reader) {
    const MutexLock lock(mutex_);
    const auto entry = entries_.find(query);
    if (entry == entries_.end()) return std::nullopt;
    const Stamp stamp = entry->second.stamp;
    if (changes[stamp.counter] != stamp.count) return std::nullopt;
    return reader(entry->second.value.get());
}

void LeafCache::keep(const std::string& query, Stamp stamp, Json value) {
    if (query.size() > longestQuery) return;
    const MutexLock lock(mutex_);
    if (entries_.size() >= mostEntries) entries_.clear();
    entries_.insert_or_assign(query, Entry{stamp, std::move(value)});
}

}  // namespace host
