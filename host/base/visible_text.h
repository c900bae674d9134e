/// Texts of any bytes, made fit for one line of a log.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// `text` with its control bytes and backslashes escaped as in C: the letter escapes where there are any, else three
/// octal digits.
std::string visibleText(std::string_view text);

}  // namespace host
