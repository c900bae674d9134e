#include "system/maintenance.h"

#include "tests/system/console.h"

namespace {

using MaintenanceTest = ConsoleTest;

TEST_F(MaintenanceTest, RebootsWhetherAskedForOrRefused) {
    static useconds_t waited;
    rebootWait = [](useconds_t time) {
        EXPECT_TRUE(shellLines().empty());
        return static_cast<int>(waited = time);
    };
    EXPECT_EQ(type("Reboot"), "Reboot\r\n");
    EXPECT_EQ(published(), Lines{"UpgradeSlaveVersionQuery Sys Reboot\r"});
    EXPECT_EQ(waited, 3'000'000U);
    EXPECT_EQ(shellLines(), Lines{"reboot"});
    reset();
    EXPECT_EQ(type("Reboot now"), refusal("Reboot now"));
    EXPECT_TRUE(published().empty());
    EXPECT_EQ(shellLines(), Lines{"reboot"});
}

TEST_F(MaintenanceTest, GivesItsOrdersToTheServices) {
    for (const std::string line : {"Update", "USBSW x", "USBSW 1", "USBSW 2", "USBSW 3", "debug MCU"}) {
        EXPECT_EQ(type(line), line + "\r\n");
    }
    setStatus(R"({"system":{"update":{"progressEvent":{"isOn":true}}}})");
    EXPECT_EQ(type("Update x", "Mreset", "Zebulax off"), "Update x\r\n");
    EXPECT_EQ(calls(), (Lines{"systemd sshUpdate On", "intermcud trigerUsb Off", "intermcud trigerUsb OUTA",
                              "intermcud trigerUsb VALENS_UART_UPDATE", "intermcud trigerUsb On",
                              "intermcud debugMCU On", "kxcmdd receiveFromUartString KX_Display Off"}));
    EXPECT_EQ(published(), Lines{"UpgradeSlaveVersionQuery Sys Default\r"});
}

}  // namespace
