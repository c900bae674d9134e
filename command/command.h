/// A typed line on its way into its row's action, a changed value on its way into its row's printer, and the replies
/// that all of them share.
#pragma once

struct Family;

/// What the dispatcher hands to an action. All texts live until the action returns.
struct Command {
    const char* line;      ///< the whole line from its first non-space character
    const char* rowName;   ///< the matched row's name
    const char* argument;  ///< the text after the row's name, leading spaces skipped; empty when nothing follows
    bool broadcast;        ///< the setting `system.broadcast` when the line was taken
    const char* leaf;      ///< the row's template: a JSON document with one conversion, a factory key, or empty
    const Family& family;  ///< the row's family, which knows what is accepted
};

/// Carries out a command and writes its reply.
using Action = void (*)(const Command& command);

/// A value that changed somewhere: `text` for a string leaf, else null and `number` for a number or a truth value (1,
/// 0).
struct ChangedValue {
    int number = 0;
    const char* text = nullptr;
};

/// What the event listener hands to the printer of the row that a changed leaf belongs to.
struct Change {
    const char* rowName;
    const Family& family;
    ChangedValue value;
};

/// Prints a changed value as the command line that would have changed it. Runs on the event listener's thread. The
/// value is of the kind that the family's leaf holds.
using Printer = void (*)(const Change& change);

/// The one reply to anything that a command refuses: "Command FAILED: (line)".
void reject(const char* line);
inline void reject(const Command& command) { reject(command.line); }

/// "name value": the form of most confirmations, "sta" replies and feedback lines.
void printSetting(const char* rowName, const char* value);
void printSetting(const char* rowName, int value);

/// The printers of most texts and numbers: the same form.
void printText(const Change& change);
void printInteger(const Change& change);

/// "name[value]".
void printBracketed(const char* rowName, const char* value);

/// A line of its own.
void printLine(const char* text);

/// "on" for any true value.
inline const char* onOff(bool on) { return on ? "on" : "off"; }
