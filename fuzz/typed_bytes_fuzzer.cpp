/// Types any bytes on a console. A byte 255, which no connection lets through to a console, announces that something
/// else happens: the byte behind it tells what.

#include "console/line_reader.h"
#include "fuzz/device.h"
#include "tests/dialogue.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr unsigned char announcement = 255;

constexpr const char* fallible[] = {"user_config_query_boolean",
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
                                    "system"};

/// A letter of the alphabet makes the next call of a function fail; "r" and "R" have a service answer.
void inject(LineReader& reader, unsigned char what) {
    if (what == 'r') return fake_platform::setReply("systemd", "sshAddUser", "success");
    if (what == 'R') return fake_platform::setReply("systemd", "sshAddUser", "fail: the name is taken");
    if (what < 'a' || what - 'a' >= static_cast<int>(std::size(fallible))) return reader.onQuiet();
    fake_platform::fail(fallible[what - 'a'], 1);
}

void type(const std::uint8_t* bytes, std::size_t count) {
    SessionContext session;
    LineReader reader(session);
    for (std::size_t i = 0; i < count; ++i) {
        if (bytes[i] == announcement && i + 1 < count) {
            inject(reader, bytes[++i]);
        } else {
            reader.take(static_cast<char>(bytes[i]));
        }
    }
    reader.take('\r');
    reader.onQuiet();
}

/// Whether a shell makes plain words of the line: what means something to it stands in quotes or is escaped.
bool isPlain(const std::string& line) {
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\'') {
            i = line.find('\'', i + 1);
        } else if (line[i] == '\\') {
            ++i;
        } else if (std::strchr("\"`$;&|<>()[]{}#~!?\n\r\t", line[i]) != nullptr) {
            return false;
        }
        if (i >= line.size()) return false;
    }
    return true;
}

void checkUpdates(const fuzz::Leaves& stored) {
    for (const std::string& update : fake_platform::updates()) {
        for (const auto& [path, value] : fuzz::leavesOf(update)) {
            const auto old = stored.find(path);
            fuzz::require(old != stored.end(), "no line makes a leaf", update);
            fuzz::require(fake_platform::kindOf(value) == fake_platform::kindOf(old->second),
                          "no line changes the kind of a leaf", update);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::silence();
    const fuzz::Device device;
    static const fuzz::Leaves stored = fuzz::storedLeaves();
    type(data, size);
    checkUpdates(stored);
    for (const std::string& line : fake_platform::shellLines())
        fuzz::require(isPlain(line), "no shell sees what was typed", line);
    return 0;
}
