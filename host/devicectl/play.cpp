#include "host/devicectl/play.h"

#include "host/base/atomic_file.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>

namespace host {
namespace {

/// The byte that an escape stands for; `at` is moved behind it.
char readEscape(std::string_view text, std::size_t& at) {
    const char letter = at < text.size() ? text[at++] : '\\';
    if (letter == 'n') return '\n';
    if (letter == 'r') return '\r';
    if (letter == 't') return '\t';
    if (letter != 'x') return letter;
    unsigned value = 0;
    const char* end = std::from_chars(text.data() + at, text.data() + std::min(at + 2, text.size()), value, 16).ptr;
    at = static_cast<std::size_t>(end - text.data());
    return static_cast<char>(value);
}

std::string unquoted(const std::string& word) {
    if (word.size() < 2 || word.front() != '"' || word.back() != '"') return word;
    const std::string_view inner(word.data() + 1, word.size() - 2);
    std::string text;
    for (std::size_t at = 0; at < inner.size();) {
        const char next = inner[at++];
        text += next == '\\' ? readEscape(inner, at) : next;
    }
    return text;
}

/// Takes a word off the front.
std::string takeWord(std::string& line) {
    const std::size_t end = line.find(' ');
    std::string word = line.substr(0, end);
    line.erase(0, end == std::string::npos ? end : end + 1);
    return word;
}

/// The words for devicectl, of which the last one takes the rest of the line.
Arguments split(std::string line) {
    Arguments words = {takeWord(line), takeWord(line)};
    const Verb* verb = findVerb(words);
    const std::size_t count = verb == nullptr ? 0 : wordsOf(verb->usage).size();
    while (words.size() + 1 < count) words.push_back(takeWord(line));
    if (!line.empty()) words.push_back(line);
    for (std::string& word : words) word = unquoted(word);
    if (count == 1) words.pop_back();
    return words;
}

/// The number behind a word and a blank.
std::optional<double> numberAfter(std::string_view word, const std::string& line) {
    if (!line.starts_with(word) || line.size() <= word.size() + 1 || line[word.size()] != ' ') return std::nullopt;
    const char* text = line.c_str() + word.size() + 1;
    char* end = nullptr;
    const double number = std::strtod(text, &end);
    const bool isSensible = end != text && *end == '\0' && number >= 0 && number < 1e6;
    return isSensible ? std::optional(number) : std::nullopt;
}

using Clock = std::chrono::steady_clock;

class Scene {
  public:
    Scene(std::string name, std::vector<std::string> lines) : name_(std::move(name)), lines_(std::move(lines)) {}

    int play() { return playLines(0, lines_.size()); }

  private:
    int playLines(std::size_t first, std::size_t last);
    int playLine(std::size_t at);
    void pause(double seconds);
    int refuse(std::size_t at, const char* reason) const;

    const std::string name_;
    const std::vector<std::string> lines_;
    Clock::time_point paused_ = Clock::now();  ///< the end of the pause before; first the scene's beginning
};

int Scene::playLines(std::size_t first, std::size_t last) {
    for (std::size_t at = first; at < last; ++at) {
        const std::optional<double> times = numberAfter("repeat", lines_[at]);
        if (!times) {
            if (const int status = playLine(at); status != 0) return status;
            continue;
        }
        std::size_t end = at + 1;
        while (end < last && lines_[end] != "end") ++end;
        if (end == last) return refuse(at, "no \"end\" follows");
        for (int i = 0; i < static_cast<int>(*times); ++i) {
            if (const int status = playLines(at + 1, end); status != 0) return status;
        }
        at = end;
    }
    return 0;
}

/// A pause counts from the one before, so that a scene keeps its pace whatever its steps take.
void Scene::pause(double seconds) {
    const auto wanted = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    paused_ = std::max(paused_ + wanted, Clock::now());
    std::this_thread::sleep_until(paused_);
}

int Scene::playLine(std::size_t at) {
    const std::string& line = lines_[at];
    if (line.empty() || line.starts_with("#")) return 0;
    const std::optional<double> seconds = numberAfter("wait", line);
    if (!seconds) {
        std::puts(line.c_str());
        std::fflush(stdout);
    }
    if (line.starts_with("== ")) return 0;
    if (seconds) {
        pause(*seconds);
        return 0;
    }
    if (!line.starts_with("$ ")) return refuse(at, "not a line of a scene");
    return runVerb(split(line.substr(2))) == 0 ? 0 : refuse(at, "the scene ends here");
}

int Scene::refuse(std::size_t at, const char* reason) const {
    return fail(name_ + ":" + std::to_string(at + 1) + ": " + lines_[at], reason);
}

}  // namespace

int playScene(const Arguments& words) {
    const std::optional<std::string> text = readFile(words[0]);
    if (!text) return fail(words[0]);
    std::istringstream file(*text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        lines.push_back(line);
    }
    return Scene(words[0], std::move(lines)).play();
}

}  // namespace host
