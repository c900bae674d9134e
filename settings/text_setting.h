/// Settings that store a text as it was typed.
#pragma once

#include "command/command.h"

#include <cstddef>

/// A dotted address in any form that the standard parser takes, or "sta".
void setAddress(const Command& command);

/// A text in brackets up to the first "]", cut to 30 bytes without a word.
void setLabel(const Command& command);

/// Any text but the empty one, cut to `limit` bytes without a word. There is no "sta".
void setCutText(const Command& command, std::size_t limit);

/// Any text of at most `limit` bytes, the empty one included. There is no "sta".
void setShortText(const Command& command, std::size_t limit);

/// Shows the stored text whatever the argument.
void reportText(const Command& command);

template <std::size_t limit>
void setCutText(const Command& command) {
    setCutText(command, limit);
}

template <std::size_t limit>
void setShortText(const Command& command) {
    setShortText(command, limit);
}
