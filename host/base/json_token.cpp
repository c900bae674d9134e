#include "platform/json_token.h"

#include "host/base/json.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <optional>
#include <string>
#include <variant>

namespace {

using host::Json;
using Index = std::size_t;
using Step = std::variant<std::string, Index>;

/// No path and no caller makes an array longer than this: growing fills it with nulls up to the index.
constexpr Index longestArray = 4096;

bool isIndexAllowed(Index index) { return index < longestArray; }

/// Reads "[12]" and moves `path` behind it.
std::optional<Step> takeIndex(const char*& path) {
    Index index = 0;
    const char* digits = path + 1;
    const auto [end, error] = std::from_chars(digits, digits + std::strspn(digits, "0123456789"), index);
    if (error != std::errc() || *end != ']' || !isIndexAllowed(index)) return std::nullopt;
    path = end + 1;
    return index;
}

/// Reads "name", after a dot unless it `isFirst`, and moves `path` behind it.
std::optional<Step> takeName(const char*& path, bool isFirst) {
    if (!isFirst && *path++ != '.') return std::nullopt;
    std::string name(path, std::strcspn(path, ".["));
    if (name.empty()) return std::nullopt;
    path += name.size();
    return name;
}

std::optional<Step> takeStep(const char*& path, bool isFirst) {
    return *path == '[' ? takeIndex(path) : takeName(path, isFirst);
}

bool isIndex(const Step& step) { return std::holds_alternative<Index>(step); }

/// True when `step` can lead into `container`.
bool fits(const json_object* container, const Step& step) {
    return json_object_is_type(container, isIndex(step) ? json_type_array : json_type_object) != 0;
}

/// Borrowed; null where there is nothing.
json_object* child(json_object* container, const Step& step) {
    if (!fits(container, step)) return nullptr;
    if (isIndex(step)) return json_object_array_get_idx(container, std::get<Index>(step));
    return json_object_object_get(container, std::get<std::string>(step).c_str());
}

json_object* find(json_object* root, const char* path) {
    if (*path == '\0') return nullptr;
    for (bool isFirst = true; *path != '\0' && root != nullptr; isFirst = false) {
        const std::optional<Step> step = takeStep(path, isFirst);
        root = step ? child(root, *step) : nullptr;
    }
    return root;
}

json_object* find(json_object* root, const char* path, json_type type) {
    json_object* value = find(root, path);
    return json_object_is_type(value, type) != 0 ? value : nullptr;
}

bool put(json_object* container, const Step& step, Json value) {
    if (!fits(container, step)) return false;
    if (isIndex(step))
        return json_token_array_put(container, static_cast<int>(std::get<Index>(step)), value.release()) == 0;
    if (json_object_object_add(container, std::get<std::string>(step).c_str(), value.get()) != 0) return false;
    static_cast<void>(value.release());  // the container's now
    return true;
}

/// The container at `step` that `next` is to lead into, made where there is nothing yet.
json_object* enter(json_object* container, const Step& step, const Step& next) {
    if (json_object* existing = child(container, step)) return existing;
    Json made(isIndex(next) ? json_object_new_array() : json_object_new_object());
    json_object* borrowed = made.get();
    return put(container, step, std::move(made)) ? borrowed : nullptr;
}

bool set(json_object* root, const char* path, Json value) {
    std::optional<Step> step = takeStep(path, true);
    while (step && *path != '\0') {
        std::optional<Step> next = takeStep(path, false);
        root = next ? enter(root, *step, *next) : nullptr;
        step = std::move(next);
    }
    return step && put(root, *step, std::move(value));
}

}  // namespace

json_token* json_token_parse(const char* text) {
    Json value = host::parseFirstJson(text);
    if (!value) errno = EINVAL;
    return value.release();
}

json_token* json_token_new_object() { return json_object_new_object(); }

json_token* json_token_object_walk_get_object(json_token* root, const char* path) {
    return find(root, path, json_type_object);
}

json_token* json_token_object_walk_get_array(json_token* root, const char* path) {
    return find(root, path, json_type_array);
}

const char* json_token_object_walk_get_string(json_token* root, const char* path, const char* fallback) {
    json_object* value = find(root, path, json_type_string);
    return value != nullptr ? json_object_get_string(value) : fallback;
}

int json_token_object_walk_get_int(json_token* root, const char* path, int fallback) {
    host::readInt(find(root, path), &fallback);
    return fallback;
}

int json_token_object_walk_get_boolean(json_token* root, const char* path, int fallback) {
    host::readBoolean(find(root, path), &fallback);
    return fallback;
}

int json_token_object_walk_set_string(json_token* root, const char* path, const char* value) {
    return set(root, path, Json(json_object_new_string(value))) ? 0 : -1;
}

int json_token_object_walk_set_object(json_token* root, const char* path, json_token* value) {
    return set(root, path, Json(value)) ? 0 : -1;
}

int json_token_array_length(json_token* array) {
    if (json_object_is_type(array, json_type_array) == 0) return 0;
    return static_cast<int>(json_object_array_length(array));
}

int json_token_array_put(json_token* array, int index, json_token* value) {
    Json owned(value);
    if (json_object_is_type(array, json_type_array) == 0 || index < 0) return -1;
    if (!isIndexAllowed(static_cast<Index>(index))) return -1;
    if (json_object_array_put_idx(array, static_cast<Index>(index), value) != 0) return -1;
    static_cast<void>(owned.release());  // the array's now
    return 0;
}

const char* json_token_to_string(json_token* token) { return host::compactText(token); }

void json_token_ref_put(json_token* token) { json_object_put(token); }
