/// Tells which stored control string a display-control daemon has sent.
#pragma once

#include <string>
#include <vector>

namespace host {

/// "on", "off", "mute", "vol+" or "vol-": the action whose stored string went out in these pieces; empty when it is
/// none of them.
std::string triggerNameOf(const std::vector<std::string>& pieces);

}  // namespace host
