#include "host/base/json.h"

#include <cstring>
#include <json-c/json_tokener.h>

namespace host {

Json parseFirstJson(const char* text) { return Json(json_tokener_parse(text)); }

Json parseExactJson(const char* text) {
    json_tokener* tokener = json_tokener_new();
    json_tokener_set_flags(tokener, JSON_TOKENER_STRICT);
    // With its NUL, so that the tokener knows that nothing follows.
    Json value(json_tokener_parse_ex(tokener, text, static_cast<int>(std::strlen(text) + 1)));
    json_tokener_free(tokener);
    return value;
}

const char* compactText(json_object* value) {
    return json_object_to_json_string_ext(value, JSON_C_TO_STRING_PLAIN | JSON_C_TO_STRING_NOSLASHESCAPE);
}

}  // namespace host
