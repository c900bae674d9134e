/// What a leaf is when it is asked for as one type. True, and `*value` set, where it is of that type.
#pragma once

struct json_object;

namespace host {

bool readBoolean(json_object* leaf, int* value);
/// A number that an int cannot hold is none.
bool readInt(json_object* leaf, int* value);
/// An integer is a double, too.
bool readDouble(json_object* leaf, double* value);
/// The caller frees the copy.
bool readString(json_object* leaf, char** value);

}  // namespace host
