#include "tests/dialogue.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

using namespace fake_platform;

namespace {

/// The first write with which the console answers to `line`: a record of its own each.
std::string firstWrite(const std::string& line) {
    int ends[2];
    socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends);
    std::fflush(stdout);
    const int saved = dup(STDOUT_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    dispatchCommand(line.c_str());
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    std::string bytes(4096, '\0');
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(0, recv(ends[0], bytes.data(), bytes.size(), 0))));
    for (const int descriptor : {saved, ends[0], ends[1]}) close(descriptor);
    return bytes;
}

TEST(SettingsTest, AMissingArgumentIsRefusedBeforeTheScalerIsAskedFor) {
    reset();
    setLogLevel(9);
    for (const std::string word : {"HZoom", "VZoom", "BRT", "CTRST", "SATRT", "HUE", "SHARP", "CliPort"}) {
        EXPECT_EQ(typed(word), refused(word));
    }
    EXPECT_TRUE(logLines().empty());
}

TEST(SettingsTest, AWorkTextHoldsWhatIsTypedAndItsEscapesBesides) {
    const std::string document = R"({"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"ipAddr":""}}}}})";
    const std::string address = "CliIPAddr 1.2.3.4 ";
    const std::string longest(255 - document.size() - std::string("1.2.3.4 ").size(), '\x1f');
    reset();
    setLogLevel(5);
    EXPECT_EQ(typed(address + longest), address + longest + "\r\n");
    EXPECT_TRUE(logLines().empty());
    EXPECT_EQ(typed(address + longest + "\x1f"), "");
    EXPECT_EQ(logLines(), Lines{"5 user_config_update"});
    ASSERT_EQ(updates().size(), 1U);
    EXPECT_NE(updates()[0].find("1.2.3.4 \\u001f\\u001f"), std::string::npos) << "JSON takes no control byte as it is";
}

TEST(SettingsTest, ASerialPortSettlesBeforeItIsWritten) {
    reset();
    fail("user_config_update");
    capture([] { EXPECT_EQ(typed("CSpara [9600,8,0,1]"), "CSpara [9600,8,0,1]\r\n"); }, stderr);
    EXPECT_EQ(waits(), Lines{"200000"});
    EXPECT_EQ(typed("CSpara [9600,8,0,3]"), refused("CSpara [9600,8,0,3]"));
    EXPECT_EQ(waits().size(), 1U);
}

TEST(SettingsTest, AListIsOneWrite) {
    reset();
    setConfig(R"({"video":{"vidProcess":{"scaler":{"scalerMode":true}}}})");
    EXPECT_NE(firstWrite("PrefTimg list").find("11    1440x900\r\n"), std::string::npos);
    EXPECT_NE(firstWrite("VidOutRes list").find("\t22\t4096x2160p60\r\n"), std::string::npos);
}

}  // namespace
