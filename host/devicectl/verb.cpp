#include "host/devicectl/verb.h"

#include "host/base/device_process.h"
#include "host/base/device_root.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <sstream>

namespace host {
namespace {

/// How many of the words come before the parameters.
std::ptrdiff_t typedCount(const Arguments& words) {
    return std::ranges::count_if(words, [](const std::string& word) { return std::islower(word[0]) != 0; });
}

/// The words that may stand at a place, once each; the table has equal ones side by side.
std::string listed(std::vector<std::string> words) {
    words.erase(std::unique(words.begin(), words.end()), words.end());
    std::string list;
    for (const std::string& word : words) list += (list.empty() ? "" : ", ") + word;
    return list;
}

int explainWords(const Arguments& arguments) {
    Arguments first, second;
    for (const Verb& verb : verbs()) {
        const Arguments words = wordsOf(verb.usage);
        first.push_back(words[0]);
        if (!arguments.empty() && arguments[0] == words[0]) second.push_back(words[1]);
    }
    const std::size_t wrong = second.empty() ? 0 : 1;
    const std::string place = second.empty() ? "a command is" : "after \"" + arguments[0] + "\" comes";
    const std::string found = wrong < arguments.size() ? ", not \"" + arguments[wrong] + "\"" : "";
    return explain(place + " one of " + listed(second.empty() ? first : second) + found);
}

int explainParameters(const char* usage, std::size_t expected, const Arguments& arguments) {
    if (arguments.size() < expected) return explain(std::string("a word is missing: ") + usage);
    return explain(std::string("\"") + arguments[expected] + "\" is a word too many: " + usage);
}

int reportNoDevice() {
    std::fprintf(stderr, "devicectl: no device runs in %s (start one with ./run)\n", deviceRoot().c_str());
    return failureStatus;
}

}  // namespace

Arguments wordsOf(const char* usage) {
    std::istringstream text(usage);
    return {std::istream_iterator<std::string>(text), {}};
}

const Verb* findVerb(const Arguments& arguments) {
    const auto isMeant = [&arguments](const Verb& verb) {
        Arguments words = wordsOf(verb.usage);
        words.resize(static_cast<std::size_t>(typedCount(words)));
        return arguments.size() >= words.size() && std::equal(words.begin(), words.end(), arguments.begin());
    };
    const auto found = std::ranges::find_if(verbs(), isMeant);
    return found == verbs().end() ? nullptr : &*found;
}

int runVerb(const Arguments& arguments) {
    const Verb* verb = findVerb(arguments);
    if (verb == nullptr) return explainWords(arguments);
    const Arguments words = wordsOf(verb->usage);
    if (arguments.size() != words.size()) return explainParameters(verb->usage, words.size(), arguments);
    const bool isRunning = signalDevice(0);
    if (!isRunning && (verb->needsDevice || errno == ENOENT)) return reportNoDevice();
    return verb->run(Arguments(arguments.begin() + typedCount(words), arguments.end()));
}

int explain(const std::string& mistake) {
    std::fprintf(stderr, "devicectl: %s (devicectl --help says more)\n", mistake.c_str());
    return usageStatus;
}

int fail(const std::string& what, const char* reason) {
    if (reason == nullptr) reason = std::strerror(errno);
    std::fprintf(stderr, "devicectl: %s: %s\n", what.c_str(), reason);
    return failureStatus;
}

}  // namespace host
