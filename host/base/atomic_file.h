/// Files that are always whole: the old content or the new one, and of a log whole lines.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host {

/// Replaces the content of `path`; it has reached the disk when this returns true. False with errno set, the old
/// content untouched.
bool replaceFile(const std::string& path, std::string_view content);

/// The content of `path`; nothing with errno set on failure.
std::optional<std::string> readFile(const std::string& path);

/// Adds `line` and a line end to a log in one write, so that lines of several processes never mix. A failure, as on a
/// full disk, loses the line.
void appendLine(const std::string& path, const std::string& line);

}  // namespace host
