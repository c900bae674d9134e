/// One leaf of the settings or the status store, addressed by its template: a JSON document with one conversion
/// (%s for a truth value, "%s" for a text, %d for a number). The same template, filled with a dummy, is the query and,
/// filled with the new value, the update document and the payload of the change event.
#pragma once

#include "text/owned_text.h"
#include "text/quoting.h"

#include <optional>

/// The work text of a query, an update or an event.
using Document = JsonText<256>;

/// The template with its conversion replaced by the value. A text is escaped, so that it stays inside its own string.
Document fillBoolean(const char* leaf, bool value);
Document fillInteger(const char* leaf, int value);
Document fillText(const char* leaf, const char* value);

/// Reads the settings store. Nothing (a null text) where the leaf is missing, of another type or out of reach.
/// A truth value is 1 or 0.
std::optional<int> readBoolean(const char* leaf);
std::optional<int> readInteger(const char* leaf);
OwnedText readText(const char* leaf);

/// The same for the status store.
std::optional<int> readStatusBoolean(const char* leaf);
std::optional<int> readStatusInteger(const char* leaf);
std::optional<double> readStatusDouble(const char* leaf);
OwnedText readStatusText(const char* leaf);
