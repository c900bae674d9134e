#include "host/store/change_counters.h"

#include <algorithm>
#include <functional>

namespace host {

ChangeCounters::Index ChangeCounters::indexOf(const std::string& path) {
    return static_cast<Index>(std::hash<std::string>()(path) % size);
}

std::vector<ChangeCounters::Index> ChangeCounters::indexesOf(const std::vector<std::string>& paths) {
    std::vector<Index> indexes;
    indexes.reserve(paths.size());
    for (const std::string& path : paths) indexes.push_back(indexOf(path));
    std::sort(indexes.begin(), indexes.end());
    indexes.erase(std::unique(indexes.begin(), indexes.end()), indexes.end());
    return indexes;
}

void ChangeCounters::unsettle(const std::vector<Index>& indexes) {
    for (const Index index : indexes) counts_[index] |= 1U;
}

void ChangeCounters::settle(const std::vector<Index>& indexes) {
    for (const Index index : indexes) ++counts_[index];
}

void ChangeCounters::settleAll() {
    for (std::atomic<Count>& count : counts_) {
        if (!isSettled(count)) ++count;
    }
}

}  // namespace host
