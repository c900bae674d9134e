#include "host/base/json.h"

#include <cstring>
#include <json-c/json_tokener.h>

namespace host {
namespace {

struct FreeTokener {
    void operator()(json_tokener* tokener) const { json_tokener_free(tokener); }
};

/// Ready for a new text. Each thread keeps one, since making it costs as much as reading a short text.
json_tokener* tokenerWith(int flags) {
    thread_local const std::unique_ptr<json_tokener, FreeTokener> tokener(json_tokener_new());
    json_tokener_reset(tokener.get());
    json_tokener_set_flags(tokener.get(), flags);
    return tokener.get();
}

Json parse(int flags, const char* text, int length) {
    json_tokener* tokener = tokenerWith(flags);
    Json value(json_tokener_parse_ex(tokener, text, length));
    if (json_tokener_get_error(tokener) != json_tokener_success) value.reset();
    return value;
}

}  // namespace

Json parseFirstJson(const char* text) { return parse(0, text, -1); }

Json parseExactJson(const char* text) {
    // With its NUL, so that the tokener knows that nothing follows.
    return parse(JSON_TOKENER_STRICT, text, static_cast<int>(std::strlen(text) + 1));
}

const char* compactText(json_object* value) {
    return json_object_to_json_string_ext(value, JSON_C_TO_STRING_PLAIN | JSON_C_TO_STRING_NOSLASHESCAPE);
}

}  // namespace host
