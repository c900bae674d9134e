#include "host/store/store.h"

#include "host/base/device_root.h"
#include "platform/event_bus.h"
#include "platform/logger.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <json-c/linkhash.h>
#include <pthread.h>

namespace host {
namespace {

/// How long a writer waits while those before it take no turn.
constexpr std::chrono::milliseconds turnLimit{5000};

/// The write-ahead log of a busy store is emptied, and writers wait for it, when it has grown to this size in bytes.
constexpr std::int64_t longestLog = 4 << 20;

/// A writer's turn among all writers of a store.
class Turn {
  public:
    Turn(SharedState& shared, const char* store) : lock_(shared.writeLock), outcome_(lock_.acquire(turnLimit)) {
        if (outcome_ == WriteLock::Outcome::inherited) shared.changes.settleAll();
        if (!isMine()) __printLog(LOG_LEVEL_ERROR, "%s: another writer does not come to an end", store);
    }
    ~Turn() {
        if (isMine()) lock_.release();
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    bool isMine() const { return outcome_ != WriteLock::Outcome::failed; }

  private:
    WriteLock& lock_;
    WriteLock::Outcome outcome_;
};

using Paths = std::vector<std::string>;

/// A leaf takes the place of an object, and an object that of a leaf.
bool clearPlace(Database& database, const std::string& path, Paths& changed) {
    for (const std::string& above : pathsAbove(path)) {
        if (!database.remove(onlyPath(above), changed)) return false;
    }
    return database.remove(pathsBelow(path), changed);
}

bool merge(Database& database, const Leaf& leaf, Paths& changed) {
    const std::optional<bool> isReplaced = database.replace(leaf);
    if (!isReplaced) return false;
    if (!*isReplaced) {
        const std::optional<Leaves> stored = database.read(onlyPath(leaf.path));
        if (!stored) return false;
        if (!stored->empty()) return true;  // the same value
        if (!clearPlace(database, leaf.path, changed) || !database.put(leaf)) return false;
    }
    changed.push_back(leaf.path);
    return true;
}

bool mergeAll(Database& database, const Leaves& leaves, Paths& changed) {
    return std::all_of(leaves.begin(), leaves.end(), [&](const Leaf& leaf) { return merge(database, leaf, changed); });
}

/// A failure is only logged, since the change is stored.
void publish(const std::string& event, const char* payload) {
    if (eventbus_publish(event.c_str(), payload) == 0) return;
    __printLog(LOG_LEVEL_ERROR, "%s: not published: %s", event.c_str(), std::strerror(errno));
}

/// {"audio":{},"network":{}}: the top keys of `document`, to say that anything below them may be another.
Json withoutLeaves(json_object* document) {
    Json keys(json_object_new_object());
    json_object_object_foreach(document, key, value) {
        static_cast<void>(value);
        json_object_object_add(keys.get(), key, json_object_new_object());
    }
    return keys;
}

bool refuseDocument() {
    errno = EINVAL;
    return false;
}

}  // namespace

std::string StoreKind::databasePath() const { return inRoot(name) + ".db"; }

std::string StoreKind::sharedStatePath() const { return inRoot(name) + ".shared"; }

Store::Store(const StoreKind& kind) : kind_(kind), database_(kind.databasePath(), kind.durability) {}

bool Store::readLeaf(const char* query, const LeafReader& reader) {
    SharedState* state = shared();
    if (state == nullptr) return false;
    if (const std::optional<bool> cached = cache_.read(query, state->changes, reader)) return *cached;

    const std::optional<std::string> path = queriedPath(query);
    if (!path) return false;
    const ChangeCounters::Index counter = ChangeCounters::indexOf(*path);
    const ChangeCounters::Count before = state->changes[counter];
    std::optional<Leaves> leaves = read(onlyPath(*path));
    if (!leaves) return false;
    std::optional<std::string> text;
    if (!leaves->empty()) text = std::move(leaves->front().value);
    const Json value = text ? parseFirstJson(text->c_str()) : nullptr;
    const bool isSettled = ChangeCounters::isSettled(before) && state->changes[counter] == before;
    if (isSettled) cache_.keep(query, *path, {counter, before}, std::move(text));
    return reader(value.get());
}

Json Store::readTree(const char* query) {
    const std::optional<std::string> path = queriedPath(query);
    std::optional<Json> value = path ? valueAt(*path) : std::nullopt;
    return value ? wrapped(*path, std::move(*value)) : nullptr;
}

std::optional<std::string> Store::readText(const char* query) {
    const std::optional<std::string> path = queriedPath(query);
    const std::optional<Json> value = path ? valueAt(*path) : std::nullopt;
    if (!value) return std::nullopt;
    return compactText(value->get());
}

bool Store::update(const char* text) {
    if (const std::optional<Leaf> leaf = plainLeafOf(text)) {
        return put({*leaf}, [&](const Paths&) { publish(topKeyOf(leaf->path) + kind_.eventSuffix, text); });
    }
    const Json document = parseUpdate(text);
    if (!document) return refuseDocument();
    return put(leavesOf(document.get()), [&](const Paths& changed) { announce(text, document.get(), changed); });
}

bool Store::replaceAll(const char* text) {
    const Json document = parseUpdate(text);
    if (!document) return refuseDocument();
    const Leaves leaves = leavesOf(document.get());
    return write(
        [&](Database& database, Paths& changed) {
            return database.remove(pathsBelow(""), changed) && mergeAll(database, leaves, changed);
        },
        [&](const Paths& changed) {
            const Json told = withoutLeaves(document.get());
            announce(compactText(told.get()), told.get(), changed);
        });
}

bool Store::checkpoint() {
    {
        const std::lock_guard lock(connectionMutex_);
        if (!database_.open() || !database_.checkpoint()) return false;
        const auto size = database_.logSize();
        const bool isLongEnough = size >= preparedLog || kind_.durability == Durability::process;
        if (isLongEnough && size < longestLog) return true;
    }
    SharedState* state = shared();
    if (state == nullptr) return false;
    const Turn turn(*state, kind_.name);
    const std::lock_guard lock(connectionMutex_);
    if (!turn.isMine()) return false;
    // Under constant writing there is always something left; this puts an end to it.
    if (database_.logSize() >= longestLog && !database_.emptyLog()) return false;
    if (kind_.durability == Durability::powerCut) database_.lengthenLog();
    return true;
}

SharedState* Store::shared() {
    if (SharedState* known = shared_.load()) return known;
    const std::lock_guard lock(connectionMutex_);
    if (shared_ == nullptr) shared_ = mapSharedState(kind_.sharedStatePath());
    if (shared_ == nullptr) {
        __printLog(LOG_LEVEL_ERROR, "%s: %s", kind_.sharedStatePath().c_str(), std::strerror(errno));
    }
    return shared_;
}

std::optional<Leaves> Store::read(const PathRange& range) {
    const std::lock_guard lock(connectionMutex_);
    if (!database_.open()) return std::nullopt;
    return database_.read(range);
}

std::optional<Json> Store::valueAt(const std::string& path) {
    const std::optional<Leaves> leaf = read(onlyPath(path));
    if (leaf && !leaf->empty()) return parseFirstJson(leaf->front().value.c_str());
    const std::optional<Leaves> below = read(pathsBelow(path));
    if (!below || below->empty()) return std::nullopt;
    return treeBelow(path, *below);
}

bool Store::put(const Leaves& leaves, const Announcement& announce) {
    if (stands(leaves)) return true;
    return write([&](Database& database, Paths& changed) { return mergeAll(database, leaves, changed); },
                 [&](const Paths& changed) {
                     remember(leaves, changed);
                     announce(changed);
                 });
}

bool Store::write(const Change& change, const Announcement& announce) {
    SharedState* state = shared();
    if (state == nullptr) return false;
    const Turn turn(*state, kind_.name);
    Paths changed;
    if (!turn.isMine() || !commit(change, state->changes, changed)) return false;
    // Still in turn, so that events are in the order of the changes.
    if (!changed.empty()) announce(changed);
    return true;
}

bool Store::commit(const Change& change, ChangeCounters& counters, Paths& changed) {
    const std::lock_guard lock(connectionMutex_);
    if (!database_.open() || !database_.begin()) return false;
    const bool isMade = change(database_, changed);
    if (!isMade || changed.empty()) {
        database_.rollback();
        return isMade;
    }
    const std::vector<ChangeCounters::Index> indexes = ChangeCounters::indexesOf(changed);
    counters.unsettle(indexes);
    const bool isCommitted = database_.commit();
    if (!isCommitted) database_.rollback();
    counters.settle(indexes);
    return isCommitted;
}

/// What changes nothing is done at the moment of this look, whoever may be in turn.
bool Store::stands(const Leaves& leaves) {
    const SharedState* state = shared();
    return state != nullptr && std::all_of(leaves.begin(), leaves.end(), [this, state](const Leaf& leaf) {
               return cache_.holds(leaf, state->changes);
           });
}

/// In turn: the counts are those of this change.
void Store::remember(const Leaves& leaves, const Paths& changed) {
    const ChangeCounters& changes = shared()->changes;
    for (const Leaf& leaf : leaves) {
        if (std::find(changed.begin(), changed.end(), leaf.path) == changed.end()) continue;
        const ChangeCounters::Index counter = ChangeCounters::indexOf(leaf.path);
        cache_.renew(leaf, {counter, changes[counter]});
    }
}

void Store::announce(const char* text, json_object* document, const Paths& changed) const {
    const bool isOneBranch = json_object_object_length(document) == 1;
    json_object_object_foreach(document, key, value) {
        const auto isBelow = [key = std::string(key)](const std::string& path) { return topKeyOf(path) == key; };
        if (std::none_of(changed.begin(), changed.end(), isBelow)) continue;
        const std::string event = std::string(key) + kind_.eventSuffix;
        if (isOneBranch) return publish(event, text);
        const Json branch(json_object_new_object());
        json_object_object_add(branch.get(), key, json_object_get(value));
        publish(event, compactText(branch.get()));
    }
}

namespace {

struct Stores {
    Store settings{settingsKind};
    Store status{statusKind};
};

Stores* stores;

/// In a forked child anew: a connection of SQLite must not be used there, nor closed.
void makeStores() { stores = new Stores; }

Stores& storesOfProcess() {
    [[maybe_unused]] static const bool areMade = [] {
        makeStores();
        return pthread_atfork(nullptr, nullptr, makeStores) == 0;
    }();
    return *stores;
}

}  // namespace

Store& settingsStore() { return storesOfProcess().settings; }

Store& statusStore() { return storesOfProcess().status; }

}  // namespace host
