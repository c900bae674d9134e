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

struct TextCommand {
    std::string_view opening;
    std::string_view ending;
};

constexpr TextCommand textCommands[] = {
    {"CliUser ", ""}, {"CliPass ", ""}, {"kxdebug ", ""}, {"SHostName ", ""}, {"SetLabel boot[", "]"},
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

/// The text that an update stores in the leaf of the line's row; nothing where it stores anything else.
std::optional<std::string> storedText(const std::string& line, const std::string& update) {
    const fuzz::Leaves leaves = fuzz::leavesOf(update);
    const std::string leaf = fuzz::leavesOf(fillText(findCommand(line.c_str())->leaf, "").c_str()).begin()->first;
    if (leaves.size() != 1 || leaves.begin()->first != leaf) return std::nullopt;
    return json_object_get_string(host::parseExactJson(leaves.begin()->second.c_str()).get());
}

void checkSetting(const TextCommand& command, const std::string& text, fuzz::ConsoleOutput& replies) {
    const std::string line = std::string(command.opening).append(text).append(command.ending);
    dispatchCommand(line.c_str());
    const std::string reply = replies.take();
    const fake_platform::Lines updates = fake_platform::updates();
    fuzz::require(updates.size() == (isRefused(reply) ? 0 : 1), "what is not refused is stored", line + "\n" + reply);
    if (updates.empty()) return;
    const std::optional<std::string> stored = storedText(line, updates[0]);
    fuzz::require(stored.has_value(), "one leaf keeps it", updates[0]);
    const std::string typed = command.ending.empty() ? asArgument(text) : text;
    fuzz::require(typed.starts_with(*stored), "a text is kept as it was typed, or cut", line + "\n" + updates[0]);
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
