/// What is sent to the pages of a store.
#pragma once

#include "host/base/json.h"
#include "host/store/store.h"

#include <map>
#include <string>

namespace panel {

class StoreView {
  public:
    explicit StoreView(host::Store& store) : store_(store) {}

    /// The whole tree.
    host::Json whole() { return store_.readTree("{}"); }

    /// The branches at the top that differ from what was returned last; null where none does.
    host::Json news();

  private:
    host::Store& store_;
    std::map<std::string, std::string> sent_;
};

}  // namespace panel
