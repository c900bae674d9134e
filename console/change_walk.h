/// Turns changed leaves back into rows of the command table and prints them.
#pragma once

#include "command/command.h"
#include "console/line_turns.h"
#include "platform/json_token.h"

/// Shows every leaf of `changes`, in the document's order. A bare value instead of an object is a leaf named
/// `category`. What is shown of one document is one turn on the connection.
void walkChangedJson(json_token* changes, const char* category, LineTurns& turns);

/// The same for a document of one leaf that needs no taking apart, which most changes are; false for any other.
bool showPlainChange(const char* document, LineTurns& turns);

/// Shows one leaf: `matchText` is its template cut behind the conversion ({"system":{"broadcast":%s}), and the first
/// row whose template holds it prints the value. Silent while broadcast is off, but for the leaf that switches it, and
/// while the slave controller is not ready. Takes the turn before it prints.
void cipProcJson(const char* matchText, const ChangedValue& value, ChangeTurn& turn);
