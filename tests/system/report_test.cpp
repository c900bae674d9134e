#include "system/uptime.h"
#include "tests/system/console.h"

#include <ctime>

namespace {

class ReportTest : public ConsoleTest {
  protected:
    ReportTest() {
        setConfig(R"({"system":{"model":"M100%","firmwareVersionTR3421Rx":"2.1"},
                      "network":{"eth0":{"bootProto":"DHCP"},"telnet":{"telnetPort":23},"ssh":{"sshPort":22},
                                 "netbios":{"hostname":"stage"}}})");
        setStatus(R"({"network":{"eth0":{"ipSettings":{"ipaddr":"1.2.3.4","netmask":"255.0.0.0","gateway":"1.1.1.1"}}},
                      "device":{"modelName":"M-100","deviceVersion":{"others":{"mcu4":{"version":"4.4"}}}}})");
        setFactoryData("MacAddr", "00:11:22:33:44:55");
        setFactoryData("FirmwareVer", "1.0.7");
        setFactoryData("AppImgVer", "9.7");
    }
};

TEST_F(ReportTest, PutsEachItemOnItsLine) {
    EXPECT_EQ(type("System sta"),
              "Model: M100%\r\nMAC Addr: 00:11:22:33:44:55\r\nAddress Type: DHCP\r\nIP Addr: 1.2.3.4\r\n"
              "Netmask: 255.0.0.0\r\nGateway: 1.1.1.1\r\nHTTP Port: 80\r\nTelnet Port: 23\r\nSSH Port: 22\r\n"
              "Firmware: 1.0.7\r\nHostname: stage\r\n");
    const long bootTime = static_cast<long>(std::time(nullptr)) - 90061;
    setStatus(R"({"time":{"status":{"bootUpTime":)" + std::to_string(bootTime) + ".0}}}");
    EXPECT_NE(type("System sta").find("7\r\nOn/Up Time <dd HH:mm:ss>: 01 01:01:"), std::string::npos);
}

TEST_F(ReportTest, KeepsThePlacesOfItemsForPrograms) {
    EXPECT_EQ(type("System dev"),
              "Model: M100%%;MAC Addr: 00:11:22:33:44:55%;Address Type: DHCP%;IP Addr: 1.2.3.4%;Netmask: 255.0.0.0%;"
              "Gateway: 1.1.1.1%;HTTP Port: 80%;Telnet Port: 23%;Firmware: 1.0.7%;%;\r\n");
    reset();
    EXPECT_EQ(type("System dev", "Version", "Version1830", "Type"), "%;%;%;%;%;%;HTTP Port: 80%;%;%;%;\r\n");
}

TEST(Uptime, DropsFractionsAndSurvivesNonsense) {
    EXPECT_STREQ(formatUptime(90061.9).c_str(), "01 01:01:01");
    EXPECT_STREQ(formatUptime(86400.0 * 124 - 1).c_str(), "123 23:59:59");
    EXPECT_STREQ(formatUptime(1e300).c_str(), "00 00:00:00");
}

}  // namespace
