#include "tools/command_reference/play.h"

#include "console/event_listener.h"
#include "console/line_reader.h"
#include "console/session.h"
#include "host/store/defaults.h"
#include "tests/capture.h"
#include "tests/fake_platform/fake_platform.h"

#include <pthread.h>

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
    fake_platform::reset();
    fake_platform::setConfig(host::defaultSettings);
    fake_platform::setConfig(furtherSettings);
    fake_platform::setConfig(broadcast ? R"({"system":{"broadcast":true}})" : R"({"system":{"broadcast":false}})");
    fake_platform::setStatus(host::defaultStatus);
    for (const auto& [key, text] : factoryData) fake_platform::setFactoryData(key, text);
    fake_platform::setReply("systemd", "sshAddUser", "success");
}

void startListener() {
    static SessionContext session;
    sessionAuthenticated = 1;
    pthread_t thread;
    pthread_create(&thread, nullptr, eventListenerThread, &session);
    pthread_detach(thread);
    fake_platform::awaitSubscription("UpgradeSlaveVersionQuery");
}

Played play(const std::string& line, bool broadcast) {
    makeNewDevice(broadcast);
    const fake_platform::Captured errors(stderr);
    const fake_platform::Captured output(stdout);
    type(line);
    fake_platform::deliver("end", "");  // when nobody hears of it, all before it has been shown
    const std::string endOfEcho = "\r\n";
    return {output.text().substr(endOfEcho.size()), fake_platform::calls(), fake_platform::shellLines()};
}
