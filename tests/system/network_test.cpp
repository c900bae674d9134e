#include "tests/system/console.h"

namespace {

using NetworkTest = ConsoleTest;

TEST_F(NetworkTest, ReportsTheAddressesThatFitProtocolAndLinks) {
    setConfig(R"({"network":{"telnet":{"telnetPort":23}}})");
    setConfig(
        R"({"network":{"eth0":{"ipSettings":{"ipaddr":"10.0.0.2","netmask":"255.0.0.0","gateway":"10.0.0.1"}}}})");
    setStatus(R"({"network":{"eth0":{"ipSettings":{"ipaddr":"1.2.3.4","netmask":"255.255.0.0"}}}})");
    const std::string port = "IP Port 23\r\n";
    const std::string none = "IP Addr 0.0.0.0\r\nNetmask 0.0.0.0\r\nGateway 0.0.0.0\r\nIP Port 23\r\n";
    const std::string configured = "IP Addr 10.0.0.2\r\nNetmask 255.0.0.0\r\nGateway 10.0.0.1\r\n";
    const std::string inEffect = "IP Addr 1.2.3.4\r\nNetmask 255.255.0.0\r\nGateway 1.2.0.1\r\nIP Port 23\r\n";
    const struct {
        std::string bootProto, ethernet, hdbaset, gatewayInEffect, expected;
    } cases[] = {
        {"DHCP", "false", "false", R"("1.2.0.1")", none},
        {"STATIC", "false", "false", R"("1.2.0.1")", configured},
        {"DHCP", "true", "false", R"("1.2.0.1")", inEffect},
        {"STATIC", "false", "true", R"("1.2.0.1")", inEffect},
        {"DHCP", "true", "0", R"("1.2.0.1")", ""},
        {"STATIC", "true", "true", R"("0.0.0.0")", configured + port},
        {"OTHER", "true", "true", R"("1.2.0.1")", ""},
        {"STATIC", "true", "true", "0", ""},
    };
    for (const auto& [bootProto, ethernet, hdbaset, gateway, expected] : cases) {
        setConfig(R"({"network":{"eth0":{"bootProto":")" + bootProto + R"("}}})");
        setStatus(R"({"network":{"eth0":{"linkStatus":)" + ethernet + "}}}");
        setStatus(R"({"network":{"valens":{"linkStatus":)" + hdbaset + "}}}");
        setStatus(R"({"network":{"eth0":{"ipSettings":{"gateway":)" + gateway + "}}}}");
        EXPECT_EQ(type("IPCFG"), expected) << bootProto << " " << ethernet << " " << hdbaset << " " << gateway;
    }
}

TEST_F(NetworkTest, StoresAStaticAddressInOneStep) {
    const std::string line = "IPStatic  1.2.3.4   5.6.7.8 9.10.11.12 ";
    const std::string document =
        R"({"network":{"eth0":{"ipSettings":{"ipaddr":"1.2.3.4","netmask":"5.6.7.8","gateway":"9.10.11.12"}}}})";
    EXPECT_EQ(type(line, line), line + "\r\n" + line + "\r\n");
    EXPECT_EQ(updates(), Lines{document});
    EXPECT_EQ(published(), Lines{"networkUserConfigChanged " + document});
}

TEST_F(NetworkTest, LoginModeEndsTheConsolesOnlyWithBroadcastOff) {
    EXPECT_EQ(type("IPLogin sta", "IPLogin on", "IPLogin sta"), "IPLogin on\r\nIPLogin on\r\n");
    setBroadcast();
    EXPECT_EQ(type("IPLogin off"), "");
    EXPECT_EQ(shellLines(), Lines{"killall *cmdd"});
}

}  // namespace
