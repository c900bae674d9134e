/// The running strip of what happens on the device.
#pragma once

#include "host/base/json.h"

#include <string>
#include <string_view>

namespace panel {

class Strip {
  public:
    /// Notes that something of that kind ("event", "call", "typed", "display") happened now: who did it, and its text.
    void add(const char* kind, const std::string& who, std::string_view text);

    /// What was noted since the last time, as an array; null for nothing. Of a flood the first are there, and then an
    /// entry of kind "flood" whose text is the number of the others.
    host::Json take();

  private:
    host::Json entries_;
    int beyond_ = 0;
};

}  // namespace panel
