/// One row of the command table.
#pragma once

#include "command/family.h"

#include <algorithm>
#include <string_view>

/// Marks of a row, above the compare length in its flags.
enum CommandMark : unsigned {
    plainRow = 0,
    markedRow = 0x100,     ///< of a row that the device's other tools may read; this program does not
    unlistedRow = 0x10000  ///< "help <name>" prints nothing: one index of an indexed command
};

// With the sanitizers g++ does not accept a comparison with null as constant, so rows are checked in all other builds.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool rowsAreChecked = false;
#else
inline constexpr bool rowsAreChecked = true;
#endif

/// Never defined: the compiler stops at a row for which it would be called, and shows the text.
void refuseRow(const char* whatToDo);

consteval void checkLeaf(std::string_view leaf, LeafKind kind) {
    const auto conversions = std::count(leaf.begin(), leaf.end(), '%');
    const auto at = leaf.find('%');
    const std::string_view tail = at == leaf.npos ? "" : leaf.substr(at, 2);
    const bool isQuoted = at != leaf.npos && leaf[at - 1] == '"';
    const bool isTemplate = leaf.starts_with('{') && conversions == 1;
    switch (kind) {
        case LeafKind::none:
            if (!leaf.empty())
                refuseRow("A family without a leaf: leave the row's leaf empty or choose another family");
            break;
        case LeafKind::truthValue:
            if (!isTemplate || tail != "%s" || isQuoted) refuseRow("A truth value's leaf has one %s, without quotes");
            break;
        case LeafKind::number:
            if (!isTemplate || tail != "%d" || isQuoted) refuseRow("A number's leaf has one %d, without quotes");
            break;
        case LeafKind::text:
            if (!isTemplate || tail != "%s" || !isQuoted) refuseRow("A text's leaf has one \"%s\", in quotes");
            break;
        case LeafKind::factoryKey:
            if (leaf.empty() || leaf.starts_with('{')) refuseRow("The leaf is the name of a text in the factory data");
            break;
    }
}

consteval void checkFamily(const Family& family) {
    const bool isShown = family.printer != nullptr;
    if (isShown && (family.kind == LeafKind::none || family.kind == LeafKind::factoryKey)) {
        refuseRow("Only a setting's change is shown: take the printer out of the family, or give it a kind of leaf");
    }
    if (family.kind != LeafKind::truthValue) return;
    for (const Word& word : family.words) {
        const std::string_view stored = word.storedForm();
        if (stored != "true" && stored != "false") refuseRow("Each word of a switch is stored as true or false");
    }
}

struct CommandEntry {
    const char* name;      ///< the word as it is typed; may hold a space and a second word
    const char* helpText;  ///< the line that "help <name>" prints; may be empty
    const char* leaf;  ///< the settings template that actions fill and the listener matches; a factory key; or empty
    const Family& family;  ///< what is done with a typed line, what is accepted, how a change is shown
    unsigned flags;        ///< bits 0-7: the compare length, always that of the name; above it the marks

    /// The compare length is made from the name, so that it cannot differ from it.
    consteval CommandEntry(const char* rowName, const char* help, const char* rowLeaf, const Family& rowFamily,
                           unsigned marks)
        : name(rowName),
          helpText(help),
          leaf(rowLeaf),
          family(rowFamily),
          flags(marks | static_cast<unsigned>(std::string_view(rowName).size())) {
        if (!rowsAreChecked) return;
        checkLeaf(leaf, family.kind);
        checkFamily(family);
    }

    constexpr std::size_t compareLength() const { return flags & 0xFF; }
    constexpr bool hasOwnHelp() const { return (flags & unlistedRow) == 0; }
};
