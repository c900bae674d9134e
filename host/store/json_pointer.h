/// Where a leaf stands in its tree: a JSON Pointer (RFC 6901), such as "/audio/audOut/allMute", in which a key's "~" is
/// written "~0" and its "/" "~1". (json-c's own json_pointer_set() writes such keys without undoing that.)
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Goes one key down.
void appendKey(std::string& path, std::string_view key);

/// The keys that lead to `path`, from the top.
std::vector<std::string> keysOf(std::string_view path);

/// The top key alone.
std::string topKeyOf(std::string_view path);

/// The paths of the objects around `path`, from the top; the root itself is none of them.
std::vector<std::string> pathsAbove(std::string_view path);

/// Paths from `first` up to, and without, `end` in byte order.
struct PathRange {
    std::string first;
    std::string end;
};

PathRange onlyPath(std::string_view path);

/// All paths below `path`, without itself. Below the root, "", stands everything.
PathRange pathsBelow(std::string_view path);

}  // namespace host
