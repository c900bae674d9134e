/// What the console says when the device refuses it something.
#include "console/idle_clock.h"
#include "console/line_reader.h"
#include "double/platform_double.h"
#include "tests/typed.h"

#include <gtest/gtest.h>

using namespace platform_double;

namespace {

void setBroadcast(bool on) { setConfig(std::string(R"({"system":{"broadcast":)") + (on ? "true}}" : "false}}")); }

class FailureTest : public testing::Test {
  protected:
    FailureTest() {
        reset();
        setLogLevel(5);
        setConfig(R"({"video":{"vidProcess":{"scaler":{"scalerMode":true}}}})");
    }
};

TEST_F(FailureTest, ARefusedWriteIsNeverConfirmed) {
    for (const char* line : {"Blink on", "VOUT -1", "EQ1 63 +", "CtlType ip", "CliUser x", "PrefTimg1 1", "HUE 1",
                             "Zoom on", "PictureRst", "Aspect1 fill", "VidOutRes 1", "x1AVx1", "IPDHCP on", "IPPort 23",
                             "IPTimeout 9", "IPLogin on", "Broadcast on", "SHostName x"}) {
        reset();
        setLogLevel(5);
        setConfig(R"({"video":{"vidProcess":{"scaler":{"scalerMode":true}}}})");
        fail("user_config_update");
        EXPECT_EQ(typed(line), "") << line;
        EXPECT_EQ(logLines(), Lines{"5 user_config_update"}) << line;
        EXPECT_EQ(published().size() + calls().size() + shellLines().size(), 0U) << line;
    }
}

TEST_F(FailureTest, SomeRowsReportARefusedWriteOnStandardError) {
    fail("user_config_update");
    for (const char* line : {"HDCPSet1 on", "HDCPSet2 off", "Lock"}) {
        std::string reply;
        EXPECT_EQ(captureErrors([&] { reply = typed(line); }), "user_config_update: Input/output error\n") << line;
        EXPECT_EQ(reply, "") << line;
    }
    EXPECT_EQ(complaintsAbout("CSpara [9600,8,0,1]"), "user_config_update: Input/output error\n");
    EXPECT_EQ(logLines(), Lines{});
}

TEST_F(FailureTest, ARefusedAnnouncementNamesItsEventAndLeavesTheValue) {
    const struct {
        const char* line;
        const char* event;
    } cases[] = {
        {"Blink on", "controlUserConfigChanged"},
        {"VOUT -1", "audioUserConfigChanged"},
        {"HDCPSet1 on", "videoUserConfigChanged"},
        {"SHostName x", "networkUserConfigChanged"},
        {"Broadcast on", "systemUserConfigChanged"},
        {"Lock", "systemUserConfigChanged"},
        {"CSpara [9600,8,0,1]", "systemUserConfigChanged"},
        {"USBFallback on", "controlUserConfigChanged"},
        // These four name another event, which is meant.
        {"USBFallback off", "videoUserConfigChanged"},
        {"HDBTRS232 [9600,8,0,1]", "controlUserConfigChanged"},
        {"x2AVx1", "videoUserConfigChangeds"},
        {"x3AVx1", "videoUserConfigChangeds"},
    };
    for (const auto& [line, event] : cases) {
        setBroadcast(true);
        typed(line);  // from now on the value is unchanged
        fail("eventbus_publish");
        EXPECT_EQ(complaintsAbout(line),
                  std::string("publishEvent(") + event + " SYSTEM_CMD_REQ_DEFAULT!): Input/output error\n");
        reset();
    }
}

TEST_F(FailureTest, ADeadZoneAnswersNothing) {
    IdleClock idle;
    LineReader reader(idle);
    fail("lpc_proxy_call", 1, ETIMEDOUT);
    for (const char byte : std::string("RS232zone[A]\r")) captureErrors([&] { capture([&] { reader.take(byte); }); });
    std::string reply;
    EXPECT_EQ(captureErrors([&] { reply = capture([&] { reader.takeSilence(); }); }),
              "lpc_proxy_call: Connection timed out\n");
    EXPECT_EQ(reply, "");
    EXPECT_EQ(capture([&] { reader.takeSilence(); }), "");
}

TEST_F(FailureTest, UnreadableSettingsReadAsOffAndSilence) {
    fail("user_config_query_boolean");
    EXPECT_EQ(typed("Blink sta"), "");
    EXPECT_EQ(typed("Blink on"), "Blink on\r\n");
    fail("user_config_query_int");
    EXPECT_EQ(typed("VOUT sta") + typed("Status"), "");
    fail("user_config_query_string");
    EXPECT_EQ(typed("CtlType sta") + typed("RHostName"), "");
}

}  // namespace
