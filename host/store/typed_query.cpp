#include "host/store/typed_query.h"

#include <climits>
#include <cstring>

namespace host {
namespace {

bool isType(const json_object* leaf, json_type type) { return json_object_is_type(leaf, type) != 0; }

}  // namespace

int queryBoolean(Store& store, const char* query, int* value) {
    return store.readLeaf(query, [value](json_object* leaf) {
        if (!isType(leaf, json_type_boolean)) return false;
        *value = json_object_get_boolean(leaf);
        return true;
    });
}

int queryInt(Store& store, const char* query, int* value) {
    return store.readLeaf(query, [value](json_object* leaf) {
        const int64_t number = json_object_get_int64(leaf);
        if (!isType(leaf, json_type_int) || number < INT_MIN || number > INT_MAX) return false;
        *value = static_cast<int>(number);
        return true;
    });
}

int queryDouble(Store& store, const char* query, double* value) {
    return store.readLeaf(query, [value](json_object* leaf) {
        if (!isType(leaf, json_type_double) && !isType(leaf, json_type_int)) return false;
        *value = json_object_get_double(leaf);
        return true;
    });
}

int queryString(Store& store, const char* query, char** value) {
    return store.readLeaf(query, [value](json_object* leaf) {
        if (!isType(leaf, json_type_string)) return false;
        char* copy = strdup(json_object_get_string(leaf));
        if (copy != nullptr) *value = copy;
        return copy != nullptr;
    });
}

}  // namespace host
