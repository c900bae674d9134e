#include "console/login.h"

#include "console/session.h"
#include "tests/capture.h"
#include "tests/fake_platform/fake_platform.h"

#include <cstdlib>
#include <gtest/gtest.h>

using namespace fake_platform;

namespace {

/// No session starts this dialogue today: the login mode is stored and nothing more.
class LoginTest : public testing::Test {
  protected:
    LoginTest() {
        reset();
        setConfig(R"({"account":{"users":[{"username":"root","password":"r1"},{"username":"Bob","password":"b2"}]}})");
        setenv("TELNET_CLIENT_MAC", "00:11:22:33:44:55", 1);
        setenv("TELNET_CLIENT_IP", "192.0.2.7", 1);
        sessionAuthenticated = 0;
    }

    /// What the dialogue says to answers given one after the other.
    std::string answer(const Lines& texts) {
        return capture([&] {
            for (const std::string& text : texts) result_ = loginStep(state_, attempts_, text.c_str());
        });
    }

    LoginState state_ = expectingUserName;
    int attempts_ = 0;
    int result_ = -1;
};

const std::string failed = "bruteForceAttacksd cgiLoginFailedMacaddr 00:11:22:33:44:55";
const std::string succeeded = "bruteForceAttacksd loginSuccessEvent 00:11:22:33:44:55";

TEST_F(LoginTest, ASecondUserLogsInWithItsOwnPassword) {
    EXPECT_EQ(answer({"bob", "Bob"}), "");
    EXPECT_EQ(state_, expectingPassword);
    EXPECT_EQ(answer({"r1"}), "\r\n");
    EXPECT_EQ(state_, expectingUserName);
    EXPECT_EQ(sessionAuthenticated, 0);
    state_ = expectingPassword;
    EXPECT_EQ(answer({"b2"}), "\r\n") << "the user that failed was remembered";
    EXPECT_EQ(answer({"Bob", "b2"}), "\nWelcome to Telnet.\r\n");
    EXPECT_EQ(state_, loggedIn);
    EXPECT_EQ(sessionAuthenticated, 1);
    EXPECT_EQ(attempts_, 3);
    EXPECT_EQ(calls(), (Lines{failed, failed, failed, succeeded}));
    EXPECT_EQ(answer({"anything"}), "");
    EXPECT_EQ(result_, 1);
}

TEST_F(LoginTest, ReportsTheClientThatTheLauncherNamed) {
    setenv("TELNET_CLIENT_MAC", "", 1);
    EXPECT_TRUE(loginReport(true));
    fail("lpc_proxy_call", 1);
    EXPECT_FALSE(loginReport(false));
    unsetenv("TELNET_CLIENT_MAC");
    EXPECT_FALSE(loginReport(false));
    EXPECT_EQ(calls(), Lines{"bruteForceAttacksd loginSuccessEvent 192.0.2.7"});
}

TEST_F(LoginTest, AClientIsLockedByAnyOfItsEntries) {
    EXPECT_FALSE(loginIsLocked("a"));
    setStatus(R"({"network":{"http":{"bruteForceAttacks":{"loginFailedList":[
        {"id":"a","isLock":false},{"isLock":true},7,{"id":"b","isLock":true},{"id":"a","isLock":true}]}}}})");
    EXPECT_TRUE(loginIsLocked("a"));
    EXPECT_TRUE(loginIsLocked("b"));
    EXPECT_FALSE(loginIsLocked("A"));
    EXPECT_FALSE(loginIsLocked(nullptr));
    fail("user_status_query_to_json_token");
    EXPECT_FALSE(loginIsLocked("a"));
}

}  // namespace
