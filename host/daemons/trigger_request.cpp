#include "host/daemons/trigger_request.h"

#include "host/base/json.h"
#include "platform/json_token.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <regex>
#include <sstream>

namespace host {
namespace {

constexpr int mostWaits = 100;
constexpr int mostSends = 100;

/// "4f", or "4f\r" with end characters.
std::string decodeWord(const std::string& word) {
    static const std::regex byteAndEnd("([[:xdigit:]]{1,2})([[:cntrl:]]*)");
    std::smatch match;
    if (!std::regex_match(word, match, byteAndEnd)) return word;
    return static_cast<char>(std::stoi(match[1], nullptr, 16)) + match[2].str();
}

}  // namespace

std::string decodeControlString(const std::string& text) {
    std::string bytes;
    std::istringstream words(text);
    for (std::string word; std::getline(words, word, ' ');) bytes += decodeWord(word);
    return text.ends_with(' ') ? bytes + ' ' : bytes;
}

std::optional<TriggerRequest> parseTriggerRequest(const char* json) {
    const Json document = parseFirstJson(json);
    json_token* fields = json_token_object_walk_get_object(document.get(), "displayControl");
    const char* data = json_token_object_walk_get_string(fields, "sendData", nullptr);
    if (data == nullptr) return std::nullopt;
    const auto number = [fields](const char* name, int most, int fallback) {
        return std::clamp(json_token_object_walk_get_int(fields, name, fallback), 0, most);
    };
    TriggerRequest request{.text = data,
                           .bytes = decodeControlString(data),
                           .sendCount = number("sendcount", mostSends, 1),
                           .waits = number("fiveSecDelay", mostWaits, 0),
                           .isLeading = number("leadingFlag", 1, 1) == 1};
    // The text of a volume request cannot hold the NUL that ends it; the other requests spell it out.
    if (number("writeNull", 1, 0) == 1 && !request.bytes.ends_with('\0')) request.bytes += '\0';
    return request;
}

std::string describeBytes(const std::string& bytes) {
    std::string hex, text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        char word[4];
        std::snprintf(word, sizeof word, "%02x ", byte);
        hex += word;
        text += std::iscntrl(byte) != 0 ? '.' : c;
    }
    return hex + "(" + text + ")";
}

}  // namespace host
