#include "fuzz/device.h"

#include "host/base/json.h"
#include "host/store/document.h"
#include "tests/dialogue.h"

namespace fuzz {
namespace {

// The parts of the commands that a new device leaves to its owner.
constexpr char furtherSettings[] = R"({
    "account":{"users":[{"username":"root","password":"secret","level":"Administrator"},
                        {"username":"guest","password":"guest1","level":"Guest"}]},
    "control":{"displayControl":{"output1":{"triger":{"command":{
        "repeat":true,"repeatTimes":3,"commandWait":true,
        "content":{"on":"41 2c 42 2c 2c 43"},
        "end":{"on":"CR-LF","off":"None","mute":"Null","volumePlus":"STX","feedbackMute":"none of these"}}}}}}})";

}  // namespace

void silence() {
    static const bool isDone = std::freopen("/dev/null", "w", stdout) && (stderr = std::fopen("/dev/null", "w"));
    if (!isDone) std::abort();
}

Device::Device() {
    fake_platform::makeNew();
    fake_platform::setConfig(furtherSettings);
    for (const char* key : {"MacAddr", "SerialNumber", "ManufactoryID", "ProductID", "FirmwareVer"}) {
        fake_platform::setFactoryData(key, "00:11:22:33:44:55");
    }
    fake_platform::setLogLevel(9);
}

Leaves leavesOf(const std::string& document) {
    const host::Json root = host::parseExactJson(document.c_str());
    Leaves leaves;
    if (root == nullptr) leaves[""] = document;
    for (const auto& [path, value] : host::leavesOf(root.get())) leaves[path] = value;
    return leaves;
}

Leaves storedLeaves() {
    Leaves leaves = leavesOf(fake_platform::config());
    leaves.merge(leavesOf(fake_platform::status()));
    return leaves;
}

}  // namespace fuzz
