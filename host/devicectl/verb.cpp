#include "host/devicectl/verb.h"

#include "host/base/device_process.h"
#include "host/base/device_root.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace host {
namespace {

bool isFirstWordOf(const Verb& verb, const Arguments& arguments) {
    return !arguments.empty() && std::string_view(arguments[0]) == verb.word;
}

/// The words that may stand at a place, once each.
class Choice {
  public:
    void add(const char* word) {
        if (word != nullptr && word != last_) text_ += (text_.empty() ? "" : ", ") + std::string(word);
        last_ = word == nullptr ? "" : word;
    }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
    std::string_view last_;
};

int explainWords(const Arguments& arguments) {
    Choice first, second;
    for (const Verb& verb : verbs()) {
        first.add(verb.word);
        if (isFirstWordOf(verb, arguments)) second.add(verb.second);
    }
    const bool isFirstWrong = second.text().empty();
    const std::size_t wrong = isFirstWrong ? 0 : 1;
    const std::string place = isFirstWrong ? "a command is" : "after \"" + std::string(arguments[0]) + "\" comes";
    const std::string found = wrong < arguments.size() ? ", not \"" + std::string(arguments[wrong]) + "\"" : "";
    return explain(place + " one of " + (isFirstWrong ? first : second).text() + found);
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
               (verb.second == nullptr || (arguments.size() > 1 && std::string_view(arguments[1]) == verb.second));
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
