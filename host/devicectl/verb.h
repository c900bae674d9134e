/// What devicectl can do: one row for each command.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace host {

using Arguments = std::vector<std::string>;

inline constexpr int failureStatus = 1;
inline constexpr int usageStatus = 2;

struct Verb {
    const char* usage;  ///< "config get JSON": the words as they are typed, then the parameters in capitals
    bool needsDevice;   ///< a running one
    int (*run)(const Arguments& parameters);
    const char* help;
};

std::span<const Verb> verbs();

/// The verb that `arguments` begin with; null when there is none.
const Verb* findVerb(const Arguments& arguments);

/// The words and parameters of a usage.
Arguments wordsOf(const char* usage);

/// Runs the command that `arguments` spell and returns its exit status; where they spell none, says which word is wrong
/// and what is allowed in its place.
int runVerb(const Arguments& arguments);

/// The one line about a mistake on the command line.
int explain(const std::string& mistake);

/// The one line of a command that failed: what it was about, and errno's reason or a given one.
int fail(const std::string& what, const char* reason = nullptr);

}  // namespace host
