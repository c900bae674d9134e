/// Types any bytes on a console. A byte 255, which no connection lets through to a console, announces that something
/// else happens: the byte behind it tells what.

#include "console/line_reader.h"
#include "fuzz/console_output.h"
#include "fuzz/device.h"
#include "fuzz/require.h"

#include <cstdint>

namespace {

constexpr unsigned char announcement = 255;

constexpr const char* fallible[] = {
    "user_config_query_boolean",
    "user_config_query_int",
    "user_config_query_string",
    "user_config_query_to_json_token",
    "user_config_update",
    "user_status_query_int",
    "user_status_query_string",
    "user_status_query_boolean",
    "user_status_query_double",
    "user_status_update",
    "eventbus_publish",
    "lpc_proxy_call",
    "lpc_proxy_call_with_reply",
    "lpc_completion_wait",
    "factory_read_data",
    "lsystem",
    "system",
};

/// A letter of the alphabet makes the next call of a function fail; "r" and "R" have a service answer.
void happen(LineReader& reader, unsigned char what) {
    if (what == 'r') return platform_double::setReply("systemd", "sshAddUser", "success");
    if (what == 'R') return platform_double::setReply("systemd", "sshAddUser", "fail: the name is taken");
    if (what < 'a' || what - 'a' >= static_cast<int>(std::size(fallible))) return reader.takeSilence();
    platform_double::fail(fallible[what - 'a'], 1);
}

void type(const std::uint8_t* bytes, std::size_t count) {
    IdleClock idle;
    LineReader reader(idle);
    for (std::size_t i = 0; i < count; ++i) {
        if (bytes[i] == announcement && i + 1 < count) {
            happen(reader, bytes[++i]);
        } else {
            reader.take(static_cast<char>(bytes[i]));
        }
    }
    reader.take('\r');
    reader.takeSilence();
}

/// Takes the single-quoted parts out of a shell line; a quote outside of them comes as \'.
std::string unquoted(const std::string& line) {
    std::string rest;
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (!isQuoted && line.compare(i, 2, "\\'") == 0) {
            ++i;
        } else if (line[i] == '\'') {
            isQuoted = !isQuoted;
        } else if (!isQuoted) {
            rest += line[i];
        }
    }
    return isQuoted ? rest + "'" : rest;
}

void checkShellLines() {
    for (const std::string& line : platform_double::shellLines()) {
        fuzz::require(unquoted(line).find_first_of(";|&$()<>`'\"\\\r\n~#?[]{}!") == std::string::npos,
                      "no shell sees what was typed", line);
    }
}

}  // namespace

/// The pause of the serial commands and of a reboot.
extern "C" int __wrap_usleep(useconds_t /*microseconds*/) { return 0; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::ConsoleOutputs console;
    static const std::string shape = (fuzz::resetDevice(), fuzz::settingsShape());
    fuzz::resetDevice();
    type(data, size);
    console.replies.take();
    console.complaints.take();
    if (!platform_double::updates().empty()) {
        fuzz::require(fuzz::settingsShape() == shape, "no line makes a leaf or changes its kind",
                      platform_double::config());
    }
    checkShellLines();
    return 0;
}
