#include "host/devicectl/verb.h"

#include "host/base/device_process.h"
#include "host/base/device_root.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace host {
namespace {

bool isFirstWordOf(const Verb& verb, const Arguments& arguments) {
    return !arguments.empty() && arguments[0] == verb.word;
}

/// The words that may stand at a place, once each; the table has equal ones side by side.
std::string listed(std::vector<std::string> words) {
    words.erase(std::unique(words.begin(), words.end()), words.end());
    std::string list;
    for (const std::string& word : words) list += (list.empty() ? "" : ", ") + word;
    return list;
}

int explainWords(const Arguments& arguments) {
    std::vector<std::string> first, second;
    for (const Verb& verb : verbs()) {
        first.emplace_back(verb.word);
        if (isFirstWordOf(verb, arguments)) second.emplace_back(verb.second);
    }
    const std::size_t wrong = second.empty() ? 0 : 1;
    const std::string place = second.empty() ? "a command is" : "after \"" + arguments[0] + "\" comes";
    const std::string found = wrong < arguments.size() ? ", not \"" + arguments[wrong] + "\"" : "";
    return explain(place + " one of " + listed(second.empty() ? first : second) + found);
}

int explainParameters(const Verb& verb, const Arguments& arguments) {
    const std::size_t expected = verb.wordCount() + verb.parameterCount;
    if (arguments.size() < expected) return explain("a word is missing: " + verb.usage());
    return explain(std::string("\"") + arguments[expected] + "\" is a word too many: " + verb.usage());
}

int reportNoDevice() {
    std::fprintf(stderr, "devicectl: no device runs in %s (start one with ./run)\n", deviceRoot().c_str());
    return failureStatus;
}

}  // namespace

std::string Verb::usage() const {
    std::string text = word;
    for (const char* next : {second, parameters}) {
        if (next != nullptr && *next != '\0') text.append(" ").append(next);
    }
    return text;
}

const Verb* findVerb(const Arguments& arguments) {
    const auto isMeant = [&arguments](const Verb& verb) {
        return isFirstWordOf(verb, arguments) &&
               (verb.second == nullptr || (arguments.size() > 1 && arguments[1] == verb.second));
    };
    const auto found = std::ranges::find_if(verbs(), isMeant);
    return found == verbs().end() ? nullptr : &*found;
}

int runVerb(const Arguments& arguments) {
    const Verb* verb = findVerb(arguments);
    if (verb == nullptr) return explainWords(arguments);
    if (arguments.size() != verb->wordCount() + verb->parameterCount) return explainParameters(*verb, arguments);
    const bool isRunning = signalDevice(0);
    if (!isRunning && (verb->needsDevice || errno == ENOENT)) return reportNoDevice();
    return verb->run(Arguments(arguments.begin() + static_cast<std::ptrdiff_t>(verb->wordCount()), arguments.end()));
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
