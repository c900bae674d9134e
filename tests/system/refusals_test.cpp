#include "tests/system/console.h"

namespace {

TEST_F(ConsoleTest, RefusesWrongArguments) {
    setConfig(R"({"account":{"users":[{"username":"root","password":"1"},{"username":"bob","password":"1"}]}})");
    const struct {
        std::string name;
        Lines arguments;
    } cases[] = {
        {"IPStatic", {" 1.2.3.4 5.6.7.8", " 1.2.3.4 5.6.7.8 9.10.11.300", " 1.2.3.4 5.6.7.8 9.9.9.9 8.8.8.8"}},
        {"IPStatic 1.2.3.4 5.6.7.8", {" 0000000000000000000000000000000001.1.1.1"}},
        {"IPPort", {" 0", " 65536", " 80a", " -1", " 4294967319"}},
        {"IPTimeout", {" 3601", " NEVER", " STA"}},
        {"IPAddUser", {" al", " Bob x1", " al pass_1", " al x1 more"}},
        {"IPDelUser", {" ROOT", " nobody"}},
        {"Version", {" MCU", " "}},
        {"USBSW", {" -1", " 4294967296"}},
        {"SQrnMac", {" 00-11-22-33-44", " 0-1-2-3-4-5-6"}},
        {"", {"IPCFG now", "IPDHCP ON", "IPLogin On", "Type x", "Mreset x", "Update x", "dbg977 on", "RQrnSN x"}},
    };
    for (const auto& [name, arguments] : cases) {
        for (const std::string& argument : arguments) EXPECT_EQ(type(name + argument), refusal(name + argument));
    }
    EXPECT_EQ(type("Zebulax", "Zebulax ON"), "");
    EXPECT_EQ(updates().size() + published().size() + calls().size() + shellLines().size(), 0U);
}

}  // namespace
