/// The documents that a store is asked with and changed by, and the leaves that they are made of.
#pragma once

#include "host/base/json.h"

#include <optional>
#include <string>
#include <vector>

namespace host {

struct Leaf {
    std::string path;
    std::string value;  ///< as JSON text; an array is one value
};
using Leaves = std::vector<Leaf>;

/// The leaf of a document that leads to one and needs no taking apart, as most do; nothing for any other document.
std::optional<Leaf> plainLeafOf(const char* document);

/// The object that `text` is. Null for text that is no such object as a whole and for one that could not be stored as
/// it stands: with a NUL in a text or a number that its type cannot hold.
Json parseUpdate(const char* text);

/// The leaves of an object in its own order. An empty object holds none.
Leaves leavesOf(json_object* document);

/// The path that a query names by the first member of each of its objects; text behind the document is ignored.
/// Nothing where the text does not begin with an object.
std::optional<std::string> queriedPath(const char* query);

/// The leaves below `path` as one object. Null when memory ran out.
Json treeBelow(const std::string& path, const Leaves& leaves);

/// `value` inside the objects that lead to `path`.
Json wrapped(const std::string& path, Json value);

}  // namespace host
