/// One of the device's two stores: a JSON tree that all its processes share.
///
/// From any thread of any number of processes. Nothing is opened before the first use, and nothing is carried across a
/// fork. Every failure sets errno and leaves a line in the device log.
#pragma once

#include "host/base/json.h"
#include "host/store/database.h"
#include "host/store/leaf_cache.h"
#include "host/store/shared_state.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// What differs between the two stores.
struct StoreKind {
    const char* name;         ///< of its files below the device root, without their endings
    const char* eventSuffix;  ///< follows the top key in the name of a change event
    Durability durability;

    std::string databasePath() const;
    std::string sharedStatePath() const;
};

inline constexpr StoreKind settingsKind = {"settings", "UserConfigChanged", Durability::powerCut};
inline constexpr StoreKind statusKind = {"status", "StatusConfigChanged", Durability::process};

class Store {
  public:
    explicit Store(const StoreKind& kind);

    /// Shows the leaf that `query` names to `reader`. Returns what that says; false when the store is out of reach.
    bool readLeaf(const char* query, const LeafReader& reader);

    /// How the platform's queries answer: 1 when `convert` takes the leaf, else 0.
    template <typename Value>
    int readLeaf(const char* query, bool (*convert)(json_object* leaf, Value* value), Value* value) {
        return readLeaf(query, [convert, value](json_object* leaf) { return convert(leaf, value); }) ? 1 : 0;
    }

    /// The value that `query` names, a leaf or an object of all that stands below, inside the objects that lead to it.
    /// Null where nothing stands.
    Json readTree(const char* query);

    /// The value alone, as JSON on one line.
    std::optional<std::string> readText(const char* query);

    /// Merges an update document, durable as the store is, and announces every top key under which a value changed.
    bool update(const char* document);

    /// Makes the tree what `document` says, in one step that is announced without leaves: {"audio":{}} says that all
    /// below that key may be another.
    bool replaceAll(const char* document);

    /// Keeps the write-ahead log small; for one process of the device, every few seconds.
    bool checkpoint();

  private:
    using Paths = std::vector<std::string>;
    using Change = std::function<bool(Database& database, Paths& changed)>;
    using Announcement = std::function<void(const Paths& changed)>;

    SharedState* shared();
    std::optional<Leaves> read(const PathRange& range);
    std::optional<Json> valueAt(const std::string& path);
    bool put(const Leaves& leaves, const Announcement& announce);
    bool write(const Change& change, const Announcement& announce);
    bool commit(const Change& change, ChangeCounters& counters, Paths& changed);
    bool stands(const Leaves& leaves);
    void remember(const Leaves& leaves, const Paths& changed);
    void announce(const char* text, json_object* document, const Paths& changed) const;

    const StoreKind kind_;
    std::atomic<SharedState*> shared_ = nullptr;
    LeafCache cache_;
    std::mutex connectionMutex_;  // of the database
    Database database_;
};

/// The stores of this process's device.
Store& settingsStore();
Store& statusStore();

}  // namespace host
