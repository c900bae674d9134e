/// The status store: the device's live state. The same documents, results and threads as the settings store
/// (platform/user_config.h), but its content starts anew with the device and its changes are announced as
/// "<top key>StatusConfigChanged".
#ifndef PLATFORM_USER_STATUS_H
#define PLATFORM_USER_STATUS_H

#include "platform/json_token.h"

#ifdef __cplusplus
extern "C" {
#endif

int user_status_query_boolean(const char* query, int* value);
int user_status_query_int(const char* query, int* value);
int user_status_query_double(const char* query, double* value);
int user_status_query_string(const char* query, char** value);
json_token* user_status_query_to_json_token(const char* query);

/// Merges `document`. Returns 0 on success; non-zero when nothing of it was stored.
int user_status_update(const char* document);

#ifdef __cplusplus
}
#endif
#endif
