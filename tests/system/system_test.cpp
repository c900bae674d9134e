#include "system/orders.h"
#include "system/report.h"
#include "tests/dialogue.h"

#include <ctime>
#include <gtest/gtest.h>

using namespace fake_platform;

namespace {

/// On an empty device in memory, with broadcast off, so that every command answers by itself.
class SystemTest : public testing::Test {
  protected:
    SystemTest() { reset(); }
};

TEST_F(SystemTest, ReportsTheAddressesThatFitProtocolAndLinks) {
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
        EXPECT_EQ(typed("IPCFG"), expected) << bootProto << " " << ethernet << " " << hdbaset << " " << gateway;
    }
}

TEST_F(SystemTest, RebootsWhetherAskedForOrRefused) {
    EXPECT_EQ(typed("Reboot"), "Reboot\r\n");
    EXPECT_EQ(published(), Lines{"UpgradeSlaveVersionQuery Sys Reboot\r"});
    EXPECT_EQ(waits(), Lines{"3000000"});
    EXPECT_EQ(shellLines(), Lines{"reboot"});
    reset();
    EXPECT_EQ(typed("Reboot now"), "Command FAILED: (Reboot now)\r\n");
    EXPECT_TRUE(published().empty());
    EXPECT_EQ(shellLines(), Lines{"reboot"});
}

TEST_F(SystemTest, GivesItsOrdersToTheServices) {
    for (const std::string line :
         {"Update", "USBSW x", "USBSW 1", "USBSW 2", "USBSW 3", "debug MCU", "IPPort 24", "IPPort 24"}) {
        EXPECT_EQ(typed(line), line + "\r\n");
    }
    setStatus(R"({"system":{"update":{"progressEvent":{"isOn":true}}}})");
    EXPECT_EQ(typed("Update x") + typed("Mreset") + typed("Zebulax off"), "Update x\r\n");
    EXPECT_EQ(calls(), (Lines{"systemd sshUpdate On", "intermcud trigerUsb Off", "intermcud trigerUsb OUTA",
                              "intermcud trigerUsb VALENS_UART_UPDATE", "intermcud trigerUsb On",
                              "intermcud debugMCU On", "networkd TelnetRestart 24", "networkd TelnetRestart 24",
                              "kxcmdd receiveFromUartString KX_Display Off"}));
    EXPECT_EQ(published(), Lines{"UpgradeSlaveVersionQuery Sys Default\r"});
    makeNew();
    setBroadcast(true);
    EXPECT_EQ(shownOf(R"({"network":{"telnet":{"telnetPort":25}}})"), "IPPort 25\r\n");
    EXPECT_EQ(calls(), Lines{"networkd TelnetRestart 25"});
}

TEST_F(SystemTest, ARefusedWriteIsLogged) {
    const Lines lines = {
        "IPStatic 1.2.3.4 255.0.0.0 1.2.3.1", "IPPort 9", "debug on", "dbg977", "DispBtn on", "VOUT -9"};
    for (const bool isRefused : {false, true}) {
        makeNew();
        setLogLevel(5);
        if (isRefused) fail("user_config_update"), fail("user_status_update");
        for (const std::string& line : lines) typed(line);
        EXPECT_EQ(logLines(), Lines(isRefused ? lines.size() : 0, "5 user_config_update"));
    }
}

TEST_F(SystemTest, EachReportHasItsOwnSource) {
    setFactoryData("FirmwareVer", "F1");
    setFactoryData("AppImgVer", "F2");
    setFactoryData("MacAddr", "F3");
    setConfig(R"({"system":{"model":"C1","firmwareVersionTR3421Rx":"C2"},"network":{"netbios":{"hostname":"C7"},
        "eth0":{"bootProto":"C3","ipSettings":{"ipaddr":"C4","netmask":"C5","gateway":"C6"}},
        "telnet":{"telnetPort":61},"ssh":{"sshPort":62}}})");
    setStatus(R"({"device":{"modelName":"S1","deviceVersion":{"others":{"mcu4":{"version":"S2"}}}},
        "network":{"eth0":{"macAddr":"S3","ipSettings":{"ipaddr":"S4","netmask":"S5","gateway":"S6"}}}})");
    EXPECT_EQ(typed("Version") + typed("VersionMCU") + typed("VersionTRRX"), "F1\r\nF1\r\nC2\r\n");
    EXPECT_EQ(typed("Version977") + typed("Version1830") + typed("Type"), "F2\r\nS2\r\nS1\r\n");
    EXPECT_EQ(typed("System sta"),
              "Model: C1\r\nMAC Addr: F3\r\nAddress Type: C3\r\nIP Addr: S4\r\nNetmask: S5\r\nGateway: S6\r\n"
              "HTTP Port: 80\r\nTelnet Port: 61\r\nSSH Port: 62\r\nFirmware: F1\r\nHostname: C7\r\n");
    EXPECT_EQ(typed("System dev"),
              "Model: C1%;MAC Addr: F3%;Address Type: C3%;IP Addr: S4%;Netmask: S5%;Gateway: S6%;"
              "HTTP Port: 80%;Telnet Port: 61%;Firmware: F1%;%;\r\n");
    for (const std::string line : {"System", "System DEV", "Version MCU", "VersionX", "Type x"}) {
        EXPECT_EQ(typed(line), "Command FAILED: (" + line + ")\r\n");
    }
}

TEST_F(SystemTest, TellsHowLongItHasBeenUp) {
    const long bootTime = static_cast<long>(std::time(nullptr)) - 90061;
    setStatus(R"({"time":{"status":{"bootUpTime":)" + std::to_string(bootTime) + ".0}}}");
    EXPECT_NE(typed("System sta").find("On/Up Time <dd HH:mm:ss>: 01 01:01:"), std::string::npos);
    EXPECT_STREQ(formatUptime(86400.0 * 124 - 0.1).c_str(), "123 23:59:59");
    EXPECT_STREQ(formatUptime(1e300).c_str(), "00 00:00:00");
}

}  // namespace
