/// One row of the command table.
#pragma once

#include "command/command.h"

#include <string_view>

/// Marks of a row, above the compare length in its flags.
enum CommandMark : unsigned {
    plainRow = 0,
    markedRow = 0x100,     ///< carried for the device's other tools; nothing here asks for it
    unlistedRow = 0x10000  ///< "help <name>" prints nothing: one index of an indexed command
};

struct CommandEntry {
    const char* name;      ///< the word as it is typed; may hold a space and a second word
    const char* helpText;  ///< the line that "help <name>" prints; may be empty
    const char* leaf;  ///< the settings template that actions fill and the listener matches; a factory key; or empty
    Action action;
    Feedback feedback;
    unsigned flags;  ///< bits 0-7: the compare length, always that of the name; above it the marks

    /// The compare length is made from the name, so that it cannot differ from it.
    consteval CommandEntry(const char* rowName, const char* help, const char* rowLeaf, Action rowAction,
                           Feedback rowFeedback, unsigned marks)
        : name(rowName),
          helpText(help),
          leaf(rowLeaf),
          action(rowAction),
          feedback(rowFeedback),
          flags(marks | static_cast<unsigned>(std::string_view(rowName).size())) {}

    constexpr std::size_t compareLength() const { return flags & 0xFF; }
    constexpr bool hasOwnHelp() const { return (flags & unlistedRow) == 0; }
};
