#include "tools/command_reference/play.h"

#include "console/line_reader.h"
#include "tests/dialogue.h"

namespace {

constexpr const char* furtherSettings =
    R"({"account":{"users":[{"username":"root","password":"root","level":"Administrator"},
                            {"username":"guest","password":"guest1","level":"Guest"}]}})";

constexpr const char* factoryData[][2] = {{"MacAddr", "02:00:00:12:34:56"}, {"SerialNumber", "SN00000001"},
                                          {"ManufactoryID", "0001"},        {"ProductID", "0021"},
                                          {"FirmwareVer", "1.0.0"},         {"AppImgVer", "1.0.0"}};

void type(const std::string& line) {
    static SessionContext session;
    LineReader reader(session);
    for (const char byte : line) reader.take(byte);
    reader.take('\r');
    reader.onQuiet();
}

}  // namespace

void makeNewDevice(bool broadcast) {
    fake_platform::makeNew();
    fake_platform::setConfig(furtherSettings);
    fake_platform::setBroadcast(broadcast);
    for (const auto& [key, text] : factoryData) fake_platform::setFactoryData(key, text);
    fake_platform::setReply("systemd", "sshAddUser", "success");
}

void startListener() {
    static SessionContext session;
    sessionAuthenticated = 1;
    fake_platform::startListener(session);
}

Played play(const std::string& line, bool broadcast) {
    makeNewDevice(broadcast);
    std::string output;
    fake_platform::capture(
        [&] {
            output = fake_platform::capture([&] {
                type(line);
                fake_platform::deliver("end", "");  // behind all others, so that they have been shown
            });
        },
        stderr);
    const std::string endOfEcho = "\r\n";
    return {output.substr(endOfEcho.size()), fake_platform::calls(), fake_platform::shellLines()};
}
