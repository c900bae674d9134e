#include "console/relay.h"

#include "console/bus_loop.h"
#include "tests/dialogue.h"

#include <cerrno>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

using namespace fake_platform;

namespace {

/// Leaves the process with a listener that never ends, or its relays stopped for good: each test has its own process.
class BusLoopDeathTest : public testing::Test {
  protected:
    BusLoopDeathTest() {
        reset();
        setBroadcast(true);
        setStatus(R"({"system":{"slaveMcu":{"isReady":true}}})");
    }

    static void startListener() { fake_platform::startListener(session_); }

    static void setTimeout(int seconds) {
        setConfig(R"({"network":{"telnet":{"tcpipTimeout":)" + std::to_string(seconds) + "}}}");
    }

    /// Whether the session ends after that many seconds.
    static bool endsAfter(int seconds) {
        while (--seconds > 0) {
            if (session_.idle.tick()) return false;
        }
        return session_.idle.tick();
    }

    /// What a console of the kind shows of a feedback text, a reset, a changed setting and a link report.
    static std::string shownBy(int kind, bool isAuthenticated) {
        session_.kind = kind;
        sessionAuthenticated = isAuthenticated;
        const std::string fields(70, '0');
        const std::string report =
            R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"linkMonitoring":{"respondFrom":"stat",
                "trigerBy":"RS232ShowAll","requestStatusValue":"hpd","TX":{"allHexString":"TX:)" +
            fields + R"("},"RX":{"allHexString":"RX:)" + fields + R"("}}}}}}})";
        return capture([&] {
            startListener();
            deliver("CommandFeedback", "feedback");
            deliver("UpgradeSlaveVersionQuery", "Sys Default\r");
            deliver("controlUserConfigChanged", R"({"control":{"ledMode":true}})");
            deliver("videoStatusConfigChanged", report);
        });
    }

    static inline SessionContext session_;
};

/// In a process of its own.
#define EXPECT_HOLDS(condition) EXPECT_EXIT(std::exit((condition) ? 0 : 1), testing::ExitedWithCode(0), "^$")

TEST_F(BusLoopDeathTest, EachKindOfConsoleShowsItsOwnEvents) {
    const std::string toAll = "feedback\r\n";
    const std::string toOperators = toAll + "Mreset\r\nBlink on\r\n";
    EXPECT_HOLDS(shownBy(4, false) == toAll);
    EXPECT_HOLDS(shownBy(4, true) == toOperators);
    EXPECT_HOLDS(shownBy(1, true) == toOperators + "TX - HPD : off\r\nRX - HPD : off\r\n");
}

/// What is shown of a change that is typed before the listener listens.
std::string shownOfFirstChange(void (*startListener)()) {
    sessionAuthenticated = true;
    expectListener();
    return capture([startListener] {
        std::thread console(dispatchCommand, "Blink on");
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(20);
        while (updates().empty() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
        startListener();
        console.join();
        deliver("end", "");
    });
}

TEST_F(BusLoopDeathTest, AChangeWaitsForTheListenerThatShowsIt) {
    EXPECT_HOLDS(shownOfFirstChange(startListener) == "Blink on\r\n");
}

TEST_F(BusLoopDeathTest, AResetBeginsTheIdleCountAnew) {
    const auto isAnew = [] {
        session_.idle.start(2);
        setTimeout(3);
        startListener();
        return deliver("networkUserConfigChanged", R"({"network":{}})") && endsAfter(3);
    };
    EXPECT_HOLDS(isAnew());
}

TEST_F(BusLoopDeathTest, ATimeoutThatWasChangedBeforeItsEventCouldBeHeardIsRead) {
    const auto isRead = [] {
        setTimeout(3);
        startListener();
        deliver("controlUserConfigChanged", "{}");
        session_.idle.restart();
        return endsAfter(3);
    };
    EXPECT_HOLDS(isRead());
}

TEST_F(BusLoopDeathTest, TheBusRelayWritesBytesUntilItIsStopped) {
    const auto written = [] {
        return capture([] {
            std::thread relay(relayListener);
            awaitSubscription("recvHDBTSendTo900X");
            deliver("recvHDBTSendTo900X", "48");
            deliver("recvHDBTSendTo900X", "169");
            markRelayStop();
            deliver("recvHDBTSendTo900X", "");  // wakes the relay, which may have seen the stop already
            relay.join();
        });
    };
    EXPECT_HOLDS(written().substr(0, 2) == "Hi");
}

TEST(RelayOutageTest, IsReportedOnceAndAnewWhenAnotherHadTheRelayMeanwhile) {
    RelayOutage outage;
    std::string reported;
    for (const int error : {ETIMEDOUT, ETIMEDOUT, EEXIST, ECONNRESET})
        reported += capture([&] { errno = error, outage.report("call"); }, stderr);
    EXPECT_EQ(reported, "call: Connection timed out\ncall: Connection reset by peer\n");
}

}  // namespace
