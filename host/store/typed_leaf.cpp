#include "host/store/typed_leaf.h"

#include <climits>
#include <cstring>
#include <json-c/json_object.h>

namespace host {
namespace {

bool isType(const json_object* leaf, json_type type) { return json_object_is_type(leaf, type) != 0; }

}  // namespace

bool readBoolean(json_object* leaf, int* value) {
    if (!isType(leaf, json_type_boolean)) return false;
    *value = json_object_get_boolean(leaf);
    return true;
}

bool readInt(json_object* leaf, int* value) {
    const int64_t number = json_object_get_int64(leaf);
    if (!isType(leaf, json_type_int) || number < INT_MIN || number > INT_MAX) return false;
    *value = static_cast<int>(number);
    return true;
}

bool readDouble(json_object* leaf, double* value) {
    if (!isType(leaf, json_type_double) && !isType(leaf, json_type_int)) return false;
    *value = json_object_get_double(leaf);
    return true;
}

bool readString(json_object* leaf, char** value) {
    if (!isType(leaf, json_type_string)) return false;
    char* copy = strdup(json_object_get_string(leaf));
    if (copy != nullptr) *value = copy;
    return copy != nullptr;
}

}  // namespace host
