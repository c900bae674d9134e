#include "host/store/document.h"

#include "host/store/json_pointer.h"
#include "text/plain_leaf.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <json-c/json_object_iterator.h>
#include <json-c/json_visit.h>
#include <json-c/linkhash.h>
#include <limits>

namespace host {
namespace {

/// True for JSON with the escape \u0000: it would cut the C string of a key or a text.
bool holdsEscapedNul(const char* text) {
    for (; *text != '\0'; ++text) {
        if (*text != '\\') continue;
        if (std::strncmp(++text, "u0000", 5) == 0) return true;
        if (*text == '\0') return false;
    }
    return false;
}

/// json-c parses an integer that is too long as the longest one that fits.
bool isCutInteger(json_object* value) {
    return json_object_get_int64(value) == std::numeric_limits<int64_t>::min() ||
           json_object_get_uint64(value) == std::numeric_limits<uint64_t>::max();
}

bool isExactNumber(json_object* value) {
    if (json_object_is_type(value, json_type_int) != 0) return !isCutInteger(value);
    if (json_object_is_type(value, json_type_double) != 0) return std::isfinite(json_object_get_double(value));
    return true;
}

int stopAtInexactNumber(json_object* value, int /*flags*/, json_object* /*parent*/, const char* /*key*/,
                        std::size_t* /*index*/, void* /*context*/) {
    return isExactNumber(value) ? JSON_C_VISIT_RETURN_CONTINUE : JSON_C_VISIT_RETURN_ERROR;
}

bool isObject(const json_object* value) { return json_object_is_type(value, json_type_object) != 0; }

/// `path` is the object's; below, it grows and shrinks with the depth.
void collectLeaves(json_object* object, std::string& path, Leaves& leaves) {
    const std::size_t size = path.size();
    json_object_object_foreach(object, key, value) {
        appendKey(path, key);
        if (isObject(value)) {
            collectLeaves(value, path, leaves);
        } else {
            leaves.push_back({path, compactText(value)});
        }
        path.resize(size);
    }
}

/// The object under `key`, made where there is none yet.
json_object* enter(json_object* object, const std::string& key) {
    json_object* inner = json_object_object_get(object, key.c_str());
    if (isObject(inner)) return inner;
    inner = json_object_new_object();
    json_object_object_add(object, key.c_str(), inner);
    return inner;
}

}  // namespace

std::optional<Leaf> plainLeafOf(const char* document) {
    const std::optional<PlainLeaf> plain = findPlainLeaf(document);
    if (!plain) return std::nullopt;
    Leaf leaf{{}, {plain->value, plain->size}};
    for (const char* key = document; key < plain->value;) {
        const std::string_view quoted(key + 1, plainTextSize(key + 1));
        appendKey(leaf.path, quoted.substr(1, quoted.size() - 2));
        key = quoted.end() + 1;  // behind the colon
    }
    return leaf;
}

Json parseUpdate(const char* text) {
    Json document = holdsEscapedNul(text) ? nullptr : parseExactJson(text);
    if (!isObject(document.get())) return nullptr;
    if (json_c_visit(document.get(), 0, stopAtInexactNumber, nullptr) < 0) return nullptr;
    return document;
}

Leaves leavesOf(json_object* document) {
    Leaves leaves;
    std::string path;
    collectLeaves(document, path, leaves);
    return leaves;
}

std::optional<std::string> queriedPath(const char* query) {
    if (std::optional<Leaf> leaf = plainLeafOf(query)) return std::move(leaf->path);
    const Json document = parseFirstJson(query);
    if (!isObject(document.get())) return std::nullopt;
    std::string path;
    json_object* value = document.get();
    while (isObject(value) && json_object_object_length(value) > 0) {
        const json_object_iterator first = json_object_iter_begin(value);
        appendKey(path, json_object_iter_peek_name(&first));
        value = json_object_iter_peek_value(&first);
    }
    return path;
}

Json treeBelow(const std::string& path, const Leaves& leaves) {
    Json tree(json_object_new_object());
    for (const Leaf& leaf : leaves) {
        const std::vector<std::string> keys = keysOf(std::string_view(leaf.path).substr(path.size()));
        json_object* object = tree.get();
        for (std::size_t i = 0; i + 1 < keys.size(); ++i) object = enter(object, keys[i]);
        json_object_object_add(object, keys.back().c_str(), parseFirstJson(leaf.value.c_str()).release());
    }
    return tree;
}

Json wrapped(const std::string& path, Json value) {
    const std::vector<std::string> keys = keysOf(path);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        Json outer(json_object_new_object());
        json_object_object_add(outer.get(), key->c_str(), value.release());
        value = std::move(outer);
    }
    return value;
}

}  // namespace host
