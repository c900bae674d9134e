#include "system/maintenance.h"

#include "tests/system/console.h"

namespace {

class MaintenanceTest : public ConsoleTest {
  protected:
    MaintenanceTest() {
        rebootWait = [](useconds_t time) {
            EXPECT_TRUE(shellLines().empty());
            return static_cast<int>(waited = time);
        };
    }
    ~MaintenanceTest() override { rebootWait = usleep; }

    static inline useconds_t waited = 0;
};

TEST_F(MaintenanceTest, RebootsWhetherAskedForOrRefused) {
    EXPECT_EQ(type("Reboot"), "Reboot\r\n");
    EXPECT_EQ(published(), Lines{"UpgradeSlaveVersionQuery Sys Reboot\r"});
    EXPECT_EQ(waited, 3'000'000U);
    EXPECT_EQ(shellLines(), Lines{"reboot"});
    reset();
    EXPECT_EQ(type("Reboot now"), refusal("Reboot now"));
    EXPECT_TRUE(published().empty());
    EXPECT_EQ(shellLines(), Lines{"reboot"});
}

TEST_F(MaintenanceTest, LeavesTheResetToTheUpgradeService) {
    EXPECT_EQ(type("Mreset x", "Mreset"), refusal("Mreset x"));
    EXPECT_EQ(published(), Lines{"UpgradeSlaveVersionQuery Sys Default\r"});
    fail("eventbus_publish");
    EXPECT_EQ(complaintsAbout("Mreset"),
              "publishEvent(UpgradeSlaveVersionQuery SYSTEM_CMD_REQ_DEFAULT!): Input/output error\n");
}

TEST_F(MaintenanceTest, StartsNoSecondUpdate) {
    EXPECT_EQ(type("Update x"), refusal("Update x"));
    setStatus(R"({"system":{"update":{"progressEvent":{"isOn":true}}}})");
    EXPECT_EQ(type("Update x"), "Update x\r\n");
    EXPECT_TRUE(calls().empty());
}

TEST_F(MaintenanceTest, LocksTheFrontPanel) {
    for (const std::string line : {"Lock on", "Lockdown", "Lock ", "Unlock sta"}) EXPECT_EQ(type(line), refusal(line));
    EXPECT_EQ(type("Lock sta", "Unlock", "Lock"), "Lock\r\nUnlock\r\nLock\r\n");
    setBroadcast();
    EXPECT_EQ(type("Lock", "Unlock"), "");
    EXPECT_EQ(published(), Lines{R"(systemUserConfigChanged {"system":{"key":{"lock":true}}})"});
    fail("user_config_update");
    EXPECT_EQ(typeAndHear("Lock"), "user_config_update: Input/output error\n");
}

TEST_F(MaintenanceTest, SwitchesTheLogs) {
    EXPECT_EQ(type("debug on", "debug off", "dbg977", "dbg977"),
              "debug on\r\ndebug off\r\nInto 977 Debug Mode...\r\nLeave 977 Debug Mode...\r\n");
    EXPECT_EQ(updates(), (Lines{R"({"system":{"debug":true}})", R"({"system":{"debug":false}})",
                                R"({"system":{"dbg977":true}})", R"({"system":{"dbg977":false}})"}));
    EXPECT_EQ(shellLines(), (Lines{"/mnt/mtd/bin/apploggertool -a console debug", "/mnt/mtd/bin/apploggertool -d",
                                   "mnt/mtd/bin/apploggertool -a console debug", "mnt/mtd/bin/apploggertool -d"}));
    EXPECT_EQ(type("debug", "dbg977 on"), refusal("debug") + refusal("dbg977 on"));
    fail("user_status_update");
    setLogLevel(5);
    EXPECT_EQ(type("debug on"), "debug on\r\n");
    EXPECT_EQ(logLines(), Lines{"5 user_config_update"});
}

TEST_F(MaintenanceTest, GivesItsOrdersToTheServices) {
    const std::string lines[] = {"Update", "USBSW x", "USBSW 1", "USBSW 2", "USBSW 3", "debug MCU"};
    for (const std::string& line : lines) EXPECT_EQ(type(line), line + "\r\n");
    for (const std::string line : {"USBSW 4", "USBSW -1", "USBSW 4294967296"}) EXPECT_EQ(type(line), refusal(line));
    EXPECT_EQ(type("Zebulax", "Zebulax ON", "Zebulax off"), "");
    EXPECT_EQ(calls(), (Lines{"systemd sshUpdate On", "intermcud trigerUsb Off", "intermcud trigerUsb OUTA",
                              "intermcud trigerUsb VALENS_UART_UPDATE", "intermcud trigerUsb On",
                              "intermcud debugMCU On", "kxcmdd receiveFromUartString KX_Display Off"}));
    fail("lpc_proxy_call");
    for (const std::string& line : lines) EXPECT_EQ(complaintsAbout(line), "lpc_proxy_call: Input/output error\n");
    EXPECT_EQ(complaintsAbout("Zebulax on"),
              "lpc_proxy_call receiveFromUartString: Input/output error\n"
              "\033[1;33mKX_Display On\033[0m\r\n");
}

}  // namespace
