#include "console/relay.h"

#include "console/bus_loop.h"
#include "console/event_listener.h"
#include "console/session.h"
#include "tests/capture.h"
#include "tests/fake_platform/fake_platform.h"

#include <gtest/gtest.h>
#include <thread>

using namespace fake_platform;

namespace {

/// Leaves the process with a listener that never ends, or its relays stopped for good: each test has its own process.
class BusLoopDeathTest : public testing::Test {
  protected:
    BusLoopDeathTest() {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        reset();
    }
};

/// What a console of the kind shows of a feedback text, a reset, a changed setting and a link report.
std::string shownBy(int kind, bool isAuthenticated) {
    setConfig(R"({"system":{"broadcast":true}})");
    setStatus(R"({"system":{"slaveMcu":{"isReady":true}}})");
    sessionAuthenticated = isAuthenticated;
    const std::string fields(70, '0');
    return capture([&] {
        std::thread([kind] {
            SessionContext session;
            session.kind = kind;
            eventListenerThread(&session);
        }).detach();
        awaitSubscription("UpgradeSlaveVersionQuery");
        deliver("CommandFeedback", "feedback");
        deliver("UpgradeSlaveVersionQuery", "Sys Default\r");
        deliver("controlUserConfigChanged", R"({"control":{"ledMode":true}})");
        deliver(
            "videoStatusConfigChanged",
            R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"linkMonitoring":{"respondFrom":"stat","trigerBy":"RS232ShowAll",
                    "requestStatusValue":"hpd","TX":{"allHexString":"TX:)" +
                fields + R"("},"RX":{"allHexString":"RX:)" + fields + R"("}}}}}}})");
    });
}

TEST_F(BusLoopDeathTest, WhoListensDecidesWhatIsShown) {
    const std::string toAll = "feedback\r\n";
    const std::string toOperators = toAll + "Mreset\r\nBlink on\r\n";
    const std::string toMonitors = toOperators + "TX - HPD : off\r\nRX - HPD : off\r\n";
    EXPECT_EXIT(std::exit(shownBy(4, false) == toAll ? 0 : 1), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(std::exit(shownBy(4, true) == toOperators ? 0 : 1), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(std::exit(shownBy(1, true) == toMonitors ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(BusLoopDeathTest, AResetBeginsTheIdleCountAnew) {
    EXPECT_EXIT(
        {
            static SessionContext session;
            session.idle.start(2);
            setConfig(R"({"network":{"telnet":{"tcpipTimeout":3}}})");
            std::thread(eventListenerThread, &session).detach();
            awaitSubscription("UpgradeSlaveVersionQuery");
            deliver("networkUserConfigChanged", R"({"network":{}})");
            const bool isAnew = !session.idle.tick() && !session.idle.tick() && session.idle.tick();
            std::exit(isAnew ? 0 : 1);
        },
        testing::ExitedWithCode(0), "^$");
}

/// Whether a console, once it hears events, keeps the time-out that was stored before.
bool keepsTimeout(int seconds) {
    setConfig(R"({"network":{"telnet":{"tcpipTimeout":)" + std::to_string(seconds) + "}}}");
    static SessionContext session;
    std::thread([] { eventListenerThread(&session); }).detach();
    awaitSubscription("UpgradeSlaveVersionQuery");
    deliver("controlUserConfigChanged", "{}");
    session.idle.restart();
    while (--seconds > 0) {
        if (session.idle.tick()) return false;
    }
    return session.idle.tick();
}

TEST_F(BusLoopDeathTest, ATimeoutThatWasChangedBeforeItsEventCouldBeHeardIsRead) {
    EXPECT_EXIT(std::exit(keepsTimeout(3) ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(BusLoopDeathTest, TheBusRelayWritesBytesUntilItIsStopped) {
    EXPECT_EXIT(
        {
            const std::string bytes = capture([] {
                std::thread relay([] { EXPECT_EQ(relayListener(), 0); });
                awaitSubscription("recvHDBTSendTo900X");
                deliver("recvHDBTSendTo900X", "48");
                deliver("recvHDBTSendTo900X", "169");
                markRelayStop();
                deliver("recvHDBTSendTo900X", "");  // wakes the relay, which may have seen the stop already
                relay.join();
            });
            std::exit(bytes.substr(0, 2) == "Hi" ? 0 : 1);
        },
        testing::ExitedWithCode(0), "^$");
}

}  // namespace
