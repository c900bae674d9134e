#include "platform/user_status.h"

#include "host/store/typed_query.h"

int user_status_query_boolean(const char* query, int* value) {
    return host::queryBoolean(host::statusStore(), query, value);
}

int user_status_query_int(const char* query, int* value) { return host::queryInt(host::statusStore(), query, value); }

int user_status_query_double(const char* query, double* value) {
    return host::queryDouble(host::statusStore(), query, value);
}

int user_status_query_string(const char* query, char** value) {
    return host::queryString(host::statusStore(), query, value);
}

json_token* user_status_query_to_json_token(const char* query) { return host::statusStore().readTree(query).release(); }

int user_status_update(const char* document) { return host::statusStore().update(document) ? 0 : -1; }
