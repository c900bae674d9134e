#include "host/daemons/trigger_name.h"

#include "host/daemons/leaf_value.h"
#include "host/daemons/trigger_request.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace host {
namespace {

/// Below the display's trigger settings.
std::string commandPath(const std::string& leaf) { return "control.displayControl.output1.triger.command." + leaf; }

struct Action {
    const char* name;
    const char* key;
};
constexpr Action actions[] = {
    {"on", "on"}, {"off", "off"}, {"mute", "mute"}, {"vol+", "volumePlus"}, {"vol-", "volumeMinus"}};

constexpr std::string_view startOfText = "\x02";
constexpr char comma = 0x2c;

std::string_view endBytes(const std::string& word) {
    using namespace std::string_view_literals;
    static constexpr std::pair<std::string_view, std::string_view> ends[] = {
        {"ETX", "\x03"}, {"LF", "\n"}, {"CR", "\r"}, {"CR-LF", "\r\n"}, {"Space", " "}, {"Null", "\0"sv}, {"None", ""}};
    for (const auto& [name, bytes] : ends) {
        if (word == name) return bytes;
    }
    return startOfText;
}

std::optional<std::string> stored(const char* group, const char* key) {
    return settingText(commandPath(std::string(group) + "." + key).c_str());
}

/// What the pieces carry without the end that each of them has; nothing when one of them ends in another way.
std::optional<std::string> contentOf(const std::vector<std::string>& pieces, std::string_view end) {
    std::string content;
    for (const std::string& piece : pieces) {
        if (!piece.ends_with(end)) return std::nullopt;
        content.append(piece, 0, piece.size() - end.size());
    }
    return content;
}

bool isSent(const Action& action, const std::vector<std::string>& pieces, bool isPaced) {
    const auto content = stored("content", action.key);
    const auto end = stored("end", action.key);
    if (!content || !end) return false;
    std::string bytes = decodeControlString(*content);
    // A paced string's commas are waits and never go out.
    if (isPaced) std::erase(bytes, comma);
    return contentOf(pieces, endBytes(*end)) == bytes;
}

}  // namespace

std::string triggerNameOf(const std::vector<std::string>& pieces) {
    const bool isPaced = isSettingOn(commandPath("commandWait").c_str());
    for (const Action& action : actions) {
        if (isSent(action, pieces, isPaced)) return action.name;
    }
    return {};
}

}  // namespace host
