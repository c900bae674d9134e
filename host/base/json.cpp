#include "host/base/json.h"

#include "text/plain_leaf.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <json-c/json_tokener.h>

namespace host {
namespace {

/// Each thread keeps one, since making it costs as much as reading a short text.
auto& threadTokener() {
    thread_local std::unique_ptr<json_tokener, void (*)(json_tokener*)> tokener(nullptr, json_tokener_free);
    if (tokener == nullptr) tokener.reset(json_tokener_new());
    return tokener;
}

Json parse(int flags, const char* text, int length) {
    auto& tokener = threadTokener();
    json_tokener_reset(tokener.get());
    json_tokener_set_flags(tokener.get(), flags);
    Json value(json_tokener_parse_ex(tokener.get(), text, length));
    if (json_tokener_get_error(tokener.get()) == json_tokener_success) return value;
    // After an error it would keep half a surrogate pair and put it into the next text.
    tokener.reset();
    return nullptr;
}

bool isType(const json_object* value, json_type type) { return json_object_is_type(value, type) != 0; }

/// A leaf as a store writes most of them needs no tokener. Null for any other text.
Json plainJson(const char* text) {
    const PlainLeaf plain = plainValue(text);
    if (plain.size == 0 || text[plain.size] != '\0') return nullptr;
    switch (plain.kind) {
        case PlainLeaf::Kind::truthValue:
            return Json(json_object_new_boolean(*text == 't'));
        case PlainLeaf::Kind::integer:
            return Json(json_object_new_int(std::atoi(text)));
        default:
            return Json(json_object_new_string_len(text + 1, static_cast<int>(plain.size) - 2));
    }
}

}  // namespace

Json parseFirstJson(const char* text) {
    Json plain = plainJson(text);
    return plain ? std::move(plain) : parse(0, text, -1);
}

Json parseExactJson(const char* text) {
    // With its NUL, so that the tokener knows that nothing follows.
    return parse(JSON_TOKENER_STRICT, text, static_cast<int>(std::strlen(text) + 1));
}

const char* compactText(json_object* value) {
    return json_object_to_json_string_ext(value, JSON_C_TO_STRING_PLAIN | JSON_C_TO_STRING_NOSLASHESCAPE);
}

bool readBoolean(json_object* from, int* value) {
    if (!isType(from, json_type_boolean)) return false;
    *value = json_object_get_boolean(from);
    return true;
}

bool readInt(json_object* from, int* value) {
    const int64_t number = json_object_get_int64(from);
    if (!isType(from, json_type_int) || number < INT_MIN || number > INT_MAX) return false;
    *value = static_cast<int>(number);
    return true;
}

bool readDouble(json_object* from, double* value) {
    if (!isType(from, json_type_double) && !isType(from, json_type_int)) return false;
    *value = json_object_get_double(from);
    return true;
}

bool readString(json_object* from, char** value) {
    if (!isType(from, json_type_string)) return false;
    char* copy = strdup(json_object_get_string(from));
    if (copy != nullptr) *value = copy;
    return copy != nullptr;
}

}  // namespace host
