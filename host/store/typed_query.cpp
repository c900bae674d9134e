#include "host/store/typed_query.h"

#include "host/store/typed_leaf.h"

namespace host {
namespace {

template <typename Value>
int query(Store& store, const char* query, bool (*read)(json_object* leaf, Value* value), Value* value) {
    return store.readLeaf(query, [read, value](json_object* leaf) { return read(leaf, value); });
}

}  // namespace

int queryBoolean(Store& store, const char* text, int* value) { return query(store, text, readBoolean, value); }

int queryInt(Store& store, const char* text, int* value) { return query(store, text, readInt, value); }

int queryDouble(Store& store, const char* text, double* value) { return query(store, text, readDouble, value); }

int queryString(Store& store, const char* text, char** value) { return query(store, text, readString, value); }

}  // namespace host
