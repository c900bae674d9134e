/// Delivers any payload with any of the events that a console listens to.
///
/// The first byte of an input tells which event it is and what kind of console gets it: '0' to '9' are the events for a
/// link monitor, 'p' to 'y' the same for an ordinary console; with the highest bit set broadcast is off.

#include "fuzz/device.h"
#include "host/store/document.h"
#include "tests/dialogue.h"

#include <cstdint>

namespace {

constexpr const char* events[] = {
    "controlUserConfigChanged", "configUserConfigChanged", "audioUserConfigChanged",   "videoUserConfigChanged",
    "networkUserConfigChanged", "systemUserConfigChanged", "videoStatusConfigChanged", "systemStatusConfigChanged",
    "UpgradeSlaveVersionQuery", "CommandFeedback",
};

constexpr unsigned char ordinaryConsole = 0x40;
constexpr unsigned char broadcastOff = 0x80;

SessionContext& startListener() {
    static SessionContext session;
    sessionAuthenticated = 1;
    fake_platform::startListener(session);
    return session;
}

void checkPlainLeaf(const std::string& payload) {
    const std::optional<host::Leaf> leaf = host::plainLeafOf(payload.c_str());
    fuzz::require(!leaf || fuzz::leavesOf(payload) == fuzz::Leaves{{leaf->path, leaf->value}},
                  "what is read at a glance is what json-c reads", payload);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::silence();
    static SessionContext& session = startListener();
    if (size == 0) return 0;
    const fuzz::Device device;
    session.kind = (data[0] & ordinaryConsole) != 0 ? 4 : 1;
    if ((data[0] & broadcastOff) == 0) fake_platform::setConfig(R"({"system":{"broadcast":true}})");
    const std::string event = events[(data[0] & 0x0F) % std::size(events)];
    const std::string payload = std::string(data + 1, data + size).c_str();  // a payload ends at its first NUL
    checkPlainLeaf(payload);
    bool isServed = false;
    const std::string text = fake_platform::capture([&] { isServed = fake_platform::deliver(event, payload); });
    fuzz::require(isServed, "the listener listens on");
    if (event == "CommandFeedback") fuzz::require(text == payload + "\r\n", "a text is printed as it came", text);
    return 0;
}
