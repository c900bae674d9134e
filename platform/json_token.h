/// JSON values as the device's stores and daemons hand them around.
///
/// A token is a json-c object, so json-c's own getters work on it too. Paths name members with dots and array
/// elements with brackets: "account.users[2].username". Safe from any thread as long as one token stays on one thread.
#ifndef PLATFORM_JSON_TOKEN_H
#define PLATFORM_JSON_TOKEN_H

#include <json-c/json_types.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct json_object json_token;

/// Parses the first JSON value of `text`. Returns a token that the caller releases; NULL with errno set when there is
/// none.
json_token* json_token_parse(const char* text);

/// Returns an empty object that the caller releases, or NULL when memory ran out.
json_token* json_token_new_object(void);

/// The value at `path` below `root`: borrowed from `root`; NULL where it is missing or of another type.
json_token* json_token_object_walk_get_object(json_token* root, const char* path);
json_token* json_token_object_walk_get_array(json_token* root, const char* path);

/// The text at `path`, borrowed from `root`; `fallback` where it is missing or no string.
const char* json_token_object_walk_get_string(json_token* root, const char* path, const char* fallback);

/// The number or truth value (1 or 0) at `path`; `fallback` where it is missing or of another type.
int json_token_object_walk_get_int(json_token* root, const char* path, int fallback);
int json_token_object_walk_get_boolean(json_token* root, const char* path, int fallback);

/// Puts a copy of `value` at `path`, making objects and array elements on the way. Returns 0 on success.
int json_token_object_walk_set_string(json_token* root, const char* path, const char* value);

/// Puts `value` at `path` in the same way and takes ownership of it, success or not. Returns 0 on success.
int json_token_object_walk_set_object(json_token* root, const char* path, json_token* value);

/// Number of elements; 0 for anything but an array.
int json_token_array_length(json_token* array);

/// Puts `value` at `index`, growing the array with nulls; takes ownership, success or not. Returns 0 on success.
int json_token_array_put(json_token* array, int index, json_token* value);

/// The token as JSON text, owned by the token and valid until it is changed or released.
const char* json_token_to_string(json_token* token);

/// Gives up the caller's reference. NULL is allowed.
void json_token_ref_put(json_token* token);

#ifdef __cplusplus
}
#endif
#endif
