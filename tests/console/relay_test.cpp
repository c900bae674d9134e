#include "console/relay.h"

#include "console/bus_loop.h"
#include "console/event_listener.h"
#include "console/terminal.h"
#include "double/platform_double.h"
#include "tests/capture.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <list>
#include <thread>

using namespace platform_double;

namespace {

SessionContext& onPort(int port) {
    static std::list<SessionContext> sessions;  // their threads never end
    SessionContext& session = sessions.emplace_back();
    session.reportedPort = port;
    return session;
}

/// Waits until the relay of a console on `port` serves, then calls it.
std::string callRelay(int port, const std::string& service, const std::string& method, const Lines& texts) {
    std::thread(consoleLpcService, std::cref(onPort(port))).detach();
    return capture([&] {
        for (const std::string& text : texts) {
            EXPECT_EQ(callService(service, method, text), "") << text;
        }
    });
}

TEST(RelayTest, HandsBytesToPort9001AndTextsToPort9002) {
    reset();
    EXPECT_EQ(callRelay(9001, "hdbt12cmdd", "hdbt12cmdd", {"41", "0d", "1ff", "4G", "25"}),
              std::string("A\r\xff\0%", 5));
    EXPECT_EQ(callRelay(9002, "cmdd2zone1", "zone12cmdd", {"any %n text\r\n", "\x01"}), "any %n text\r\n\x01");
}

TEST(RelayTest, ReportsWhatItCannotSetUpAndGivesUp) {
    const auto complaint = [](int port) {
        return captureErrors([port] { EXPECT_EQ(consoleLpcService(onPort(port)), -1); });
    };
    reset();
    EXPECT_EQ(complaint(23) + complaint(9000), "");
    fail("lpc_service_create", 1, EEXIST);
    EXPECT_EQ(complaint(9001), "lpc_service_create error: File exists\n");
    fail("lpc_service_fileno");
    EXPECT_EQ(complaint(9002), "lpc_service_fileno: Input/output error\n");
}

// What follows leaves the process with its relays stopped for good, so each has a process of its own.

class BusLoopDeathTest : public testing::Test {
  protected:
    BusLoopDeathTest() {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        reset();
    }
};

[[noreturn]] void listenAndLeave() {
    SessionContext session;
    eventListenerThread(&session);
    std::exit(isRelayStopped() ? 0 : 1);
}

TEST_F(BusLoopDeathTest, TheListenerReportsAndEnds) {
    const struct {
        const char* function;
        int successes;
        const char* report;
    } failures[] = {
        {"eventbus_open", 0, "^.doListenEventLoop.eventbus_open: Input/output error\n$"},
        {"eventbus_subscribe", 0, "^eventbus_subscribe controlUserConfigChanged: Input/output error\n$"},
        {"eventbus_subscribe", 9, "^eventbus_subscribe UpgradeSlaveVersionQuery: Input/output error\n$"},
        {"eventbus_on_data_available", 0, "^eventbus_on_data_available: Input/output error\n$"},
    };
    for (const auto& [function, successes, report] : failures) {
        EXPECT_EXIT(
            {
                failAfter(function, successes);
                std::thread([] {
                    awaitSubscription("UpgradeSlaveVersionQuery");
                    deliver("CommandFeedback", "x");
                }).detach();
                listenAndLeave();
            },
            testing::ExitedWithCode(0), report);
    }
}

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
