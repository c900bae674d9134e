#include "platform/user_status.h"

#include "host/store/store.h"

int user_status_query_boolean(const char* query, int* value) {
    return host::statusStore().readLeaf(query, host::readBoolean, value);
}

int user_status_query_int(const char* query, int* value) {
    return host::statusStore().readLeaf(query, host::readInt, value);
}

int user_status_query_double(const char* query, double* value) {
    return host::statusStore().readLeaf(query, host::readDouble, value);
}

int user_status_query_string(const char* query, char** value) {
    return host::statusStore().readLeaf(query, host::readString, value);
}

json_token* user_status_query_to_json_token(const char* query) { return host::statusStore().readTree(query).release(); }

int user_status_update(const char* document) { return host::statusStore().update(document) ? 0 : -1; }
