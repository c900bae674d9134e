/// What ends a control string on its way to the display, by the word that the settings hold for it.
#pragma once

#include "command/family.h"

struct TriggerEnd {
    const char* word;
    const char* asHexWords;    ///< to follow a string of hexadecimal byte words
    const char* asCharacters;  ///< to follow any text; the byte 0 cannot stand in one
    bool isNull;               ///< sent to the daemon in a field of its own
};

/// Null for a word that is none of the eight.
const TriggerEnd* findTriggerEnd(const char* word);

/// The end of a control string: any unknown word ends it as "STX" does.
const TriggerEnd& triggerEnd(const char* word);

/// Shows a stored end word of the display's control strings: "[vol+]", in any case, answers "SetEnd vol+[CR]".
/// Nothing when it cannot be read. No row offers it yet.
void reportEndWord(const Command& command);
