#include "fuzz/device.h"

#include "console/command_table.h"
#include "settings/leaf.h"

#include <json-c/json.h>
#include <memory>

namespace fuzz {
namespace {

// What the commands use beside the leaves of the table's rows.
constexpr char furtherSettings[] = R"({
    "account":{"users":[{"username":"root","password":"secret","level":"Administrator"},
                        {"username":"guest","password":"guest1","level":"Guest"}]},
    "control":{"displayControl":{"output1":{
        "buttonControl":{"power":"on"},
        "triger":{"cec":"on","command":{
            "repeat":true,"repeatTimes":3,"commandWait":true,"sendMode":"hex",
            "content":{"on":"41 2c 42 2c 2c 43","off":"44","mute":"45 46","volumePlus":"up","volumeMinus":"down"},
            "end":{"on":"CR-LF","off":"None","mute":"Null","volumePlus":"STX","volumeMinus":"CR",
                   "feedbackOn":"CR","feedbackOff":"LF","feedbackMute":"none of these"}}}}}},
    "network":{"ssh":{"sshPort":22}},
    "system":{"broadcast":false,"uart":{
        "interface1":{"baudrate":9600,"databit":8,"parity":0,"stopbit":1},
        "interface2":{"baudrate":19200,"databit":7,"parity":1,"stopbit":2},
        "interface3":{"baudrate":115200,"databit":8,"parity":2,"stopbit":1}}}})";

constexpr char statusDocument[] = R"({
    "control":{"displayControl":{"output1":{"transmission":{"rs232":false,"telnet":false}}}},
    "device":{"modelName":"model","deviceVersion":{"others":{"mcu4":{"version":"1.2.3"}}}},
    "network":{"eth0":{"macAddr":"00:11:22:33:44:55","linkStatus":true,
                       "ipSettings":{"ipaddr":"10.0.0.2","netmask":"255.0.0.0","gateway":"10.0.0.1"}},
               "valens":{"linkStatus":true}},
    "system":{"slaveMcu":{"isReady":true},"update":{"progressEvent":{"isOn":false}}},
    "time":{"status":{"bootUpTime":1.5}},
    "video":{"vidIn":{
        "hdbtIn":{"hdbtIn1":{"connected":true,"colorMode":"RGB","colorDepth":8,
                             "videoTiming":{"h":1920,"v":1080,"refreshRate":60,"interlace":false}}},
        "hdmiIn":{"hdmiIn1":{"connected":false,"colorMode":"YUV","colorDepth":10,
                             "videoTiming":{"h":1280,"v":720,"refreshRate":50,"interlace":true}}}},
        "vidProcess":{"scaler":{"scalerMode":true}}}})";

/// The template with a value of its kind.
std::string filled(std::string leaf) {
    const std::size_t at = leaf.find('%');
    const char* value = leaf[at + 1] == 'd' ? "1" : leaf[at - 1] == '"' ? "on" : "true";
    return leaf.replace(at, 2, value);
}

void storeRows() {
    for (const CommandEntry& row : commandTable()) {
        if (*row.leaf == '{') platform_double::setConfig(filled(row.leaf));
    }
}

/// All settings in one document, so that a device is made fast.
const std::string& allSettings() {
    static const std::string settings = [] {
        storeRows();
        platform_double::setConfig(furtherSettings);
        return platform_double::config();
    }();
    return settings;
}

void addLeaves(json_object* value, const std::string& path, Leaves& leaves) {
    if (!json_object_is_type(value, json_type_object)) {
        leaves[path] = json_object_to_json_string_ext(value, JSON_C_TO_STRING_PLAIN);
        return;
    }
    json_object_object_foreach(value, key, member) addLeaves(member, path + "/" + key, leaves);
}

}  // namespace

void resetDevice() {
    platform_double::reset();
    platform_double::setConfig(allSettings());
    platform_double::setStatus(statusDocument);
    for (const char* key : {"MacAddr", "SerialNumber", "ManufactoryID", "ProductID", "FirmwareVer"}) {
        platform_double::setFactoryData(key, "00:11:22:33:44:55");
    }
    platform_double::setLogLevel(9);
}

Leaves leavesOf(const std::string& document) {
    const std::unique_ptr<json_object, decltype(&json_object_put)> root(json_tokener_parse(document.c_str()),
                                                                        json_object_put);
    Leaves leaves;
    addLeaves(root.get(), "", leaves);
    return leaves;
}

Leaves storedLeaves() {
    Leaves leaves = leavesOf(platform_double::config());
    leaves.merge(leavesOf(platform_double::status()));
    return leaves;
}

}  // namespace fuzz
