/// The settings store: the device's persistent configuration, one JSON tree shared by all its daemons.
///
/// Queries and updates are JSON documents. A query document names one leaf; the value it carries there is a dummy
/// (false, 0 or ""), and text after the document is ignored. An update document is merged into the tree in one step:
/// the leaves it holds are set, arrays as a whole, everything else stays. The store announces a change on the event
/// bus as "<top key>UserConfigChanged" with the document as payload; it announces nothing when no value changed.
///
/// All functions may be called from any thread and any number of processes at once.
#ifndef PLATFORM_USER_CONFIG_H
#define PLATFORM_USER_CONFIG_H

#include "platform/json_token.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Each returns non-zero on success; on failure (no such leaf, another type, store out of reach) it returns 0 and
/// leaves `*value` as it was. A boolean is stored as 1 or 0. A text is a copy that the caller frees with free().
int user_config_query_boolean(const char* query, int* value);
int user_config_query_int(const char* query, int* value);
int user_config_query_string(const char* query, char** value);

/// The part of the tree that `query` names, below the same top key; released by the caller. NULL on failure.
json_token* user_config_query_to_json_token(const char* query);

/// Merges `document`. Returns 0 when it is stored for good, with the power cut included; non-zero when nothing of it
/// was stored.
int user_config_update(const char* document);

#ifdef __cplusplus
}
#endif
#endif
