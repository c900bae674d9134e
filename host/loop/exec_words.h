/// Texts as the exec calls take them.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Pointers into `texts`, which must stay as they are, and a null pointer behind them.
std::vector<char*> execWords(std::vector<std::string>& texts);

}  // namespace host
