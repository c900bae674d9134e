#include "host/daemons/trigger_request.h"

#include "host/base/json.h"
#include "platform/json_token.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>

namespace host {
namespace {

constexpr int mostWaits = 100;
constexpr int mostSends = 100;

bool isHexDigit(char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }

bool isControl(char c) { return std::iscntrl(static_cast<unsigned char>(c)) != 0; }

/// A hexadecimal byte, where the word begins with one and only end characters follow.
std::optional<char> leadingByte(std::string_view& word) {
    const auto* const digitsEnd = std::find_if_not(word.begin(), word.end(), isHexDigit);
    const auto digits = static_cast<std::size_t>(digitsEnd - word.begin());
    if (digits < 1 || digits > 2 || !std::all_of(digitsEnd, word.end(), isControl)) return std::nullopt;
    unsigned char byte = 0;
    std::from_chars(word.begin(), digitsEnd, byte, 16);
    word.remove_prefix(digits);
    return static_cast<char>(byte);
}

void appendWord(std::string& bytes, std::string_view word) {
    if (const std::optional<char> byte = leadingByte(word)) bytes += *byte;
    bytes += word;
}

}  // namespace

std::string decodeControlString(std::string_view text) {
    std::string bytes;
    const bool endsInBlank = text.ends_with(' ');
    while (!text.empty()) {
        const std::size_t width = std::min(text.find(' '), text.size());
        appendWord(bytes, text.substr(0, width));
        text.remove_prefix(std::min(width + 1, text.size()));
    }
    if (endsInBlank) bytes += ' ';
    return bytes;
}

std::optional<TriggerRequest> parseTriggerRequest(const char* json) {
    const Json document = parseFirstJson(json);
    json_token* fields = json_token_object_walk_get_object(document.get(), "displayControl");
    const char* data = json_token_object_walk_get_string(fields, "sendData", nullptr);
    if (data == nullptr) return std::nullopt;
    const auto number = [fields](const char* name, int most, int fallback) {
        return std::clamp(json_token_object_walk_get_int(fields, name, fallback), 0, most);
    };
    TriggerRequest request{.bytes = decodeControlString(data),
                           .sendCount = number("sendcount", mostSends, 1),
                           .waits = number("fiveSecDelay", mostWaits, 0),
                           .isLeading = number("leadingFlag", 1, 1) == 1};
    // The text of a volume request cannot hold the NUL that ends it; the other requests spell it out.
    if (number("writeNull", 1, 0) == 1 && !request.bytes.ends_with('\0')) request.bytes += '\0';
    return request;
}

std::string describeBytes(std::string_view bytes) {
    std::string hex, text;
    for (const char c : bytes) {
        char word[4];
        std::snprintf(word, sizeof word, "%02x ", static_cast<unsigned char>(c));
        hex += word;
        text += isControl(c) ? '.' : c;
    }
    return hex + "(" + text + ")";
}

}  // namespace host
