#include "host/store/leaf_cache.h"

namespace host {
namespace {

constexpr std::size_t mostQueries = 128;

/// Longer queries are somebody's own; no command asks them twice.
constexpr std::size_t longestQuery = 256;

}  // namespace

std::optional<bool> LeafCache::read(std::string_view query, const ChangeCounters& changes, const LeafReader& reader) {
    const std::lock_guard lock(mutex_);
    const auto known = queries_.find(query);
    if (known == queries_.end()) return std::nullopt;
    Entry& entry = known->second->second;
    if (!entry.isValid(changes)) return std::nullopt;
    return reader(entry.parsed());
}

void LeafCache::keep(const std::string& query, const std::string& path, Stamp stamp, std::optional<std::string> value) {
    if (query.size() > longestQuery) return;
    const std::lock_guard lock(mutex_);
    if (queries_.size() >= mostQueries) {
        queries_.clear();
        leaves_.clear();
    }
    KnownLeaf& leaf = *leaves_.insert_or_assign(path, Entry{stamp, std::move(value), nullptr}).first;
    queries_.insert_or_assign(query, &leaf);
}

void LeafCache::renew(const Leaf& leaf, Stamp stamp) {
    const std::lock_guard lock(mutex_);
    const auto known = leaves_.find(leaf.path);
    if (known != leaves_.end()) known->second = Entry{stamp, leaf.value, nullptr};
}

bool LeafCache::holds(const Leaf& leaf, const ChangeCounters& changes) {
    const std::lock_guard lock(mutex_);
    const auto known = leaves_.find(leaf.path);
    return known != leaves_.end() && known->second.text == leaf.value && known->second.isValid(changes);
}

json_object* LeafCache::Entry::parsed() {
    if (value == nullptr && text) value = parseFirstJson(text->c_str());
    return value.get();
}

}  // namespace host
