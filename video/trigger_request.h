/// What the console hands to a display-control daemon: one control string, or one piece of a paced one.
#pragma once

#include "text/quoting.h"

/// A string and what follows it.
struct EndedString {
    const char* content = "";
    const char* end = "";
};

struct TriggerRequest {
    int waits = 0;  ///< waits of five seconds before the string is sent
    bool isRepeated = false;
    int sendCount = 1;
    EndedString sent{};
    EndedString expected{};   ///< what the display is to answer
    bool endsBare = false;    ///< no end characters follow this piece
    bool isLeading = true;    ///< the first or only piece
    bool writesNull = false;  ///< a NUL ends what is sent
    bool readsNull = false;   ///< a NUL ends what is expected
};

using RequestText = JsonText<1024>;

/// The request as JSON. Strings are escaped, so that the daemon gets every byte of them and they cannot add a field.
RequestText toJson(const TriggerRequest& request);
