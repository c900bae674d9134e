/// json-c values with an owner.
#pragma once

#include <json-c/json_object.h>
#include <memory>

namespace host {

struct ReleaseJson {
    void operator()(json_object* value) const { json_object_put(value); }
};

/// json-c shows a JSON null as a null pointer.
using Json = std::unique_ptr<json_object, ReleaseJson>;

/// The first JSON value of `text`, whatever follows it; null where there is none.
Json parseFirstJson(const char* text);

/// The one JSON value that `text` is, blanks around it aside; null for anything else.
Json parseExactJson(const char* text);

/// `value` as JSON on one line without blanks, "/" left as it is. Owned by the value, valid until it is changed.
const char* compactText(json_object* value);

/// What a value is when it is asked for as one type. True, and `*value` set, where it is of that type; `from` may be
/// null. A number that an int cannot hold is none; an integer is a double, too; the caller frees the copy of a string.
bool readBoolean(json_object* from, int* value);
bool readInt(json_object* from, int* value);
bool readDouble(json_object* from, double* value);
bool readString(json_object* from, char** value);

}  // namespace host
