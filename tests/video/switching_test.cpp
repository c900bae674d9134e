#include "double/platform_double.h"
#include "tests/typed.h"

#include <gtest/gtest.h>

using namespace platform_double;

TEST(Switching, AnUnchangedSourceIsAnnouncedWithItsOwnFailureText) {
    reset();
    setConfig(R"({"system":{"broadcast":true},"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"videoSrc":3}}}}})");
    fail("eventbus_publish");
    EXPECT_EQ(complaintsAbout("x3AVx1"),
              "publishEvent(videoUserConfigChangeds SYSTEM_CMD_REQ_DEFAULT!): Input/output error\n");
}
