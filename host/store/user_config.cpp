#include "platform/user_config.h"

#include "host/store/store.h"

int user_config_query_boolean(const char* query, int* value) {
    return host::settingsStore().readLeaf(query, host::readBoolean, value);
}

int user_config_query_int(const char* query, int* value) {
    return host::settingsStore().readLeaf(query, host::readInt, value);
}

int user_config_query_string(const char* query, char** value) {
    return host::settingsStore().readLeaf(query, host::readString, value);
}

json_token* user_config_query_to_json_token(const char* query) {
    return host::settingsStore().readTree(query).release();
}

int user_config_update(const char* document) { return host::settingsStore().update(document) ? 0 : -1; }
