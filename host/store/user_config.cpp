#include "platform/user_config.h"

#include "host/store/typed_query.h"

int user_config_query_boolean(const char* query, int* value) {
    return host::queryBoolean(host::settingsStore(), query, value);
}

int user_config_query_int(const char* query, int* value) { return host::queryInt(host::settingsStore(), query, value); }

int user_config_query_string(const char* query, char** value) {
    return host::queryString(host::settingsStore(), query, value);
}

json_token* user_config_query_to_json_token(const char* query) {
    return host::settingsStore().readTree(query).release();
}

int user_config_update(const char* document) { return host::settingsStore().update(document) ? 0 : -1; }
