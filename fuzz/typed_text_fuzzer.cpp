/// Types any text behind the commands that take one: it is kept as it was typed, or refused, and nothing else changes.
///
/// The first byte of an input tells which command it is.

#include "console/command_table.h"
#include "console/dispatcher.h"
#include "fuzz/console_output.h"
#include "fuzz/device.h"
#include "fuzz/require.h"
#include "fuzz/shell_words.h"
#include "host/base/json.h"
#include "settings/leaf.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace {

enum class TooLong { isCut, isRefused };

struct TextCommand {
    std::string_view opening;
    std::string_view ending;
    std::size_t limit;
    TooLong tooLong;
};

constexpr TextCommand textCommands[] = {
    {"CliUser ", "", 40, TooLong::isCut},        {"CliPass ", "", 40, TooLong::isCut},
    {"kxdebug ", "", 15, TooLong::isRefused},    {"SHostName ", "", 15, TooLong::isRefused},
    {"SetLabel boot[", "]", 30, TooLong::isCut},
};

constexpr char factoryOpening[] = "SQrnSN ";

bool isRefused(const std::string& reply) { return reply.starts_with("Command FAILED: ("); }

/// What can be part of a line.
std::string typable(const std::uint8_t* bytes, std::size_t count) {
    std::string text(bytes, bytes + count);
    std::erase_if(text, [](char byte) { return byte == '\0' || byte == '\r' || byte == '\n'; });
    return text;
}

std::string asArgument(const std::string& text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

/// What the setting holds after the text was typed; nothing when it is refused.
std::optional<std::string> expectedValue(const TextCommand& command, const std::string& text) {
    const bool hasBrackets = !command.ending.empty();
    const std::string typed = hasBrackets ? text.substr(0, text.find(']')) : asArgument(text);
    if (command.tooLong == TooLong::isCut && !hasBrackets && typed.empty()) return std::nullopt;
    if (command.tooLong == TooLong::isRefused && typed.size() > command.limit) return std::nullopt;
    return typed.substr(0, command.limit);
}

std::string asJson(const std::string& text) {
    return host::compactText(host::Json(json_object_new_string(text.c_str())).get());
}

/// The one update that keeps the text.
fuzz::Leaves expectedUpdate(const std::string& line, const std::string& text) {
    fuzz::Leaves update = fuzz::leavesOf(fillText(findCommand(line.c_str())->leaf, "").c_str());
    update.begin()->second = asJson(text);
    return update;
}

void checkSetting(const TextCommand& command, const std::string& text, fuzz::ConsoleOutput& replies) {
    const std::string line = std::string(command.opening).append(text).append(command.ending);
    dispatchCommand(line.c_str());
    const std::string reply = replies.take();
    const fake_platform::Lines updates = fake_platform::updates();
    const std::optional<std::string> value = expectedValue(command, text);
    fuzz::require(isRefused(reply) == !value, "a text is refused when it does not fit", line + "\n" + reply);
    fuzz::require(updates.size() == (value ? 1 : 0), "only what is not refused is stored", line);
    if (value) fuzz::require(fuzz::leavesOf(updates[0]) == expectedUpdate(line, *value), "one leaf keeps it", line);
}

/// The factory tool gets the text as one argument, or is not run.
void checkFactoryText(const std::string& text, fuzz::ConsoleOutput& replies) {
    dispatchCommand((factoryOpening + text).c_str());
    const std::string value = asArgument(text);
    fuzz::require(isRefused(replies.take()) == value.empty(), "only an empty number is refused", text);
    for (const std::string& line : fake_platform::shellLines()) {
        const std::vector<std::string> expected = {"/mnt/mtd/bin/factory_tool", "-w", "SerialNumber", value};
        fuzz::require(fuzz::ShellWords::of(line) == expected, "the tool gets the text as one argument", line);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::ConsoleOutputs console;
    if (size == 0) return 0;
    const fuzz::Device device;
    const std::string text = typable(data + 1, size - 1);
    const std::size_t choice = data[0] % (std::size(textCommands) + 1);
    if (choice < std::size(textCommands)) {
        checkSetting(textCommands[choice], text, console.replies);
    } else {
        checkFactoryText(text, console.replies);
    }
    console.complaints.take();
    return 0;
}
