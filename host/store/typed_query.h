/// What the query functions of both stores do with the leaf they find. Each returns 1 on success; 0, the value left as
/// it was, on failure.
#pragma once

#include "host/store/store.h"

namespace host {

int queryBoolean(Store& store, const char* query, int* value);
int queryInt(Store& store, const char* query, int* value);
/// An integer is a double, too.
int queryDouble(Store& store, const char* query, double* value);
/// The caller frees the copy.
int queryString(Store& store, const char* query, char** value);

}  // namespace host
