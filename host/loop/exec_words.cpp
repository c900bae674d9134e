#include "host/loop/exec_words.h"

#include <algorithm>

namespace host {

std::vector<char*> execWords(std::vector<std::string>& texts) {
    std::vector<char*> words(texts.size() + 1, nullptr);
    std::transform(texts.begin(), texts.end(), words.begin(), [](std::string& text) { return text.data(); });
    return words;
}

}  // namespace host
