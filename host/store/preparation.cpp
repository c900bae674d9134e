#include "host/store/preparation.h"

#include "host/base/time_span.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace host {
namespace {

/// A value for `path` would take the place of nothing.
std::optional<bool> isFree(Database& database, const std::string& path) {
    std::vector<PathRange> ranges = {onlyPath(path), pathsBelow(path)};
    for (const std::string& above : pathsAbove(path)) ranges.push_back(onlyPath(above));
    for (const PathRange& range : ranges) {
        const std::optional<Leaves> leaves = database.read(range);
        if (!leaves) return std::nullopt;
        if (!leaves->empty()) return false;
    }
    return true;
}

bool putWhereFree(Database& database, const Leaf& leaf) {
    const std::optional<bool> free = isFree(database, leaf.path);
    return free && (!*free || database.put(leaf));
}

bool fill(Database& database, const Leaves& leaves) {
    return database.begin() &&
           std::all_of(leaves.begin(), leaves.end(), [&](const Leaf& leaf) { return putWhereFree(database, leaf); }) &&
           database.commit();
}

bool makeReady(const StoreKind& kind, const char* document) {
    const Json content = parseUpdate(document);
    if (!content) {
        errno = EINVAL;
        return false;
    }
    Database database(kind.databasePath(), kind.durability);
    return database.create() && database.isSound() && fill(database, leavesOf(content.get())) &&
           makeSharedState(kind.sharedStatePath());
}

/// The file and its log, so that somebody can still look at them. Empty with errno set on failure.
std::string setAside(const std::string& path) {
    const std::string aside = path + ".corrupt-" + utcText("%Y%m%dT%H%M%SZ", timeOfDay());
    for (const char* ending : {"-wal", "-shm"}) std::rename((path + ending).c_str(), (aside + ending).c_str());
    return std::rename(path.c_str(), aside.c_str()) == 0 ? aside : "";
}

}  // namespace

std::optional<std::string> prepareKeptStore(const StoreKind& kind, const char* defaults) {
    const std::string path = kind.databasePath();
    const bool isMissing = access(path.c_str(), F_OK) != 0;
    if (makeReady(kind, defaults)) return isMissing ? path + " is new and holds the defaults" : "";
    if (errno != EBADMSG) return std::nullopt;
    const std::string aside = setAside(path);
    if (aside.empty() || !makeReady(kind, defaults)) return std::nullopt;
    return path + " was damaged: set aside as " + aside + ", the new one holds the defaults";
}

bool prepareFreshStore(const StoreKind& kind, const char* content) {
    for (const char* ending : {"", "-wal", "-shm"}) unlink((kind.databasePath() + ending).c_str());
    return makeReady(kind, content);
}

}  // namespace host
