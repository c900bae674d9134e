#include "video/trigger.h"

#include "tests/dialogue.h"
#include "video/trigger_pacing.h"

#include <gtest/gtest.h>

using namespace fake_platform;

namespace {

std::string output(const std::string& values) { return R"({"control":{"displayControl":{"output1":)" + values + "}}}"; }
std::string commands(const std::string& values) { return output(R"({"triger":{"command":)" + values + "}}"); }

void store(const std::string& key, const std::string& content, const std::string& end) {
    setConfig(
        commands(R"({"content":{")" + key + R"(":")" + content + R"("},"end":{")" + key + R"(":")" + end + R"("}})"));
}

/// A call as the daemons get it; `flags` are fields as they stand in it.
std::string request(const std::string& sent, const std::string& expected,
                    const std::string& flags = R"("fbEndNone":0,"leadingFlag":1,"writeNull":0,"readNull":0)") {
    return R"(SetCmdOn {"displayControl":{"fiveSecDelay":0 ,"fbVerify":0 ,"sendcount":1 ,"sendData":")" + sent +
           R"(","fbData":")" + expected + R"(",)" + flags + "}}";
}

class Triggers : public testing::Test {
  protected:
    Triggers() {
        reset();
        store("on", "50 57 52", "CR");
        store("feedbackOn", "4F 4B", "LF");
    }

    const std::string tooLong = "lpc_proxy_call: Message too long\n";
};

TEST_F(Triggers, EveryEndWordEndsAStringInItsWay) {
    const struct {
        const char *word, *hex, *raw;
        bool isNull;
    } ends[] = {
        {"STX", " 02", "\\u0002", false},
        {"ETX", " 03", "\\u0003", false},
        {"LF", " 0A", "\\u000a", false},
        {"CR", " 0D", "\\u000d", false},
        {"CR-LF", " 0D 0A", "\\u000d\\u000a", false},
        {"Space", " 20", " ", false},
        {"Null", " 00", "", true},
        {"None", "", "", false},
        {"cr", " 02", "\\u0002", false},
    };
    for (const auto& [word, hex, raw, isNull] : ends) {
        reset();
        for (const char* key : {"off", "feedbackOff", "volumePlus"}) store(key, "41", word);
        sendTrigger(rs232, powerOff);
        sendTrigger(rs232, volumeUp);
        const std::string expected = std::string(word) == "cr" ? "" : std::string("41") + hex;
        const std::string flags = std::string(R"("fbEndNone":0,"leadingFlag":1,"writeNull":)") + (isNull ? "1" : "0");
        EXPECT_EQ(calls(),
                  (Lines{"displayControl " + request(std::string("41") + hex, expected,
                                                     flags + R"(,"readNull":)" + (isNull ? "1" : "0")),
                         "displayControl " + request(std::string("41") + raw, "", flags + R"(,"readNull":0)")}));
    }
}

/// The calls that a typed line makes.
Lines callsOf(const std::string& line) {
    const std::size_t before = calls().size();
    typed(line);
    const Lines all = calls();
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
}

TEST_F(Triggers, EachActionSendsItsOwnStringsOverItsOwnTransport) {
    setConfig(commands(R"({"content":{"on":"A1","off":"A2","mute":"A3","volumePlus":"A4","volumeMinus":"A5",
                                      "feedbackOn":"B1","feedbackOff":"B2","feedbackMute":"B3"},
                           "end":{"on":"STX","off":"ETX","mute":"LF","volumePlus":"CR","volumeMinus":"Space",
                                  "feedbackOn":"CR-LF","feedbackOff":"None","feedbackMute":"CR"}})"));
    const struct {
        std::string row, type, service, busy, other;
    } ways[] = {{"TrigRS1", "rs-232", "displayControl ", "rs232", "telnet"},
                {"TrigIP1", "ip", "displayControlTelnetClient ", "telnet", "rs232"}};
    for (const auto& [row, type, service, busy, other] : ways) {
        setConfig(output(R"({"controlType":")" + type + "\"}"));
        setStatus(output(R"({"transmission":{")" + busy + R"(":false,")" + other + R"(":true}})"));
        EXPECT_EQ(callsOf(row + " on"), Lines{service + request("A1 02", "B1 0D 0A")});
        EXPECT_EQ(callsOf(row + " off"), Lines{service + request("A2 03", "B2")});
        EXPECT_EQ(callsOf("DispBtn mute"), Lines{service + request("A3 0A", "B3 0D")});
        EXPECT_EQ(callsOf("DispBtn vol+"), Lines{service + request("A4\\u000d", "")});
        EXPECT_EQ(callsOf("DispBtn vol-"), Lines{service + request("A5 ", "")});
        setStatus(output(R"({"transmission":{")" + busy + R"(":true,")" + other + R"(":false}})"));
        for (const std::string& line : {row + " on", row + " off", std::string("DispBtn vol+")}) {
            EXPECT_EQ(callsOf(line), Lines{}) << line << " while the transport is busy";
        }
    }
    setConfig(output(R"({"controlType":"cec"})"));
    for (const std::string line : {"DispBtn mute", "DispBtn vol+", "DispBtn vol-", "TrigCEC1 on", "TrigCEC off",
                                   "TrigCEC1 mute", "TrigCEC1 vol+", "TrigCEC vol-"}) {
        EXPECT_EQ(callsOf(line), Lines{"intermcud TrigCEC" + line.substr(line.find(' '))});
    }
    EXPECT_EQ(logLines(), Lines{}) << "nobody asked for a trace";
}

TEST_F(Triggers, EachFieldOfARequestHasItsOwnSource) {
    setConfig(commands(R"({"repeat":true,"repeatTimes":7,"commandWait":true,
                           "content":{"on":"2c 2c 41 2c 42 43","feedbackOn":"4F"},
                           "end":{"on":"None","feedbackOn":"Null"}})"));
    sendTrigger(rs232, powerOn);
    const std::string rest = R"(","fbData":"4F 00","fbEndNone":1,"leadingFlag":)";
    EXPECT_EQ(calls(), (Lines{R"(displayControl SetCmdOn {"displayControl":{"fiveSecDelay":2 ,"fbVerify":1 ,)"
                              R"("sendcount":7 ,"sendData":"41)" +
                                  rest + R"(1,"writeNull":0,"readNull":1}})",
                              R"(displayControl SetCmdOn {"displayControl":{"fiveSecDelay":1 ,"fbVerify":1 ,)"
                              R"("sendcount":1 ,"sendData":"42 43)" +
                                  rest + R"(0,"writeNull":0,"readNull":1}})"}));
}

TEST_F(Triggers, AMissingTextDropsTheCommand) {
    for (const char* texts : {R"({"content":{"off":"41","feedbackOff":"42"},"end":{"off":"CR"}})",
                              R"({"content":{"off":"41"},"end":{"off":"CR","feedbackOff":"CR"}})",
                              R"({"content":{"off":"41"}})", R"({"end":{"off":"CR"}})"}) {
        reset();
        setConfig(commands(texts));
        sendTrigger(rs232, powerOff);
        EXPECT_EQ(calls(), Lines{}) << texts;
    }
}

TEST_F(Triggers, AFailedCallFreesTheTransportAndEndsThePieces) {
    setConfig(commands(R"({"commandWait":true})"));
    store("on", "41 2c 42 2c 43", "CR");
    setLogLevel(8);
    fail("lpc_proxy_call", 1, ENOENT, 1);
    fail("user_status_update");
    EXPECT_EQ(capture([] { sendTrigger(telnet, powerOn); }, stderr), "lpc_proxy_call: No such file or directory\n");
    EXPECT_EQ(calls().size(), 1U);
    EXPECT_EQ(logLines(), (Lines{"8  *************C. displayControlStatus off\r\n", "5 1 user_config_update"}));
}

TEST_F(Triggers, ARequestThatDoesNotFitIsAFailedCall) {
    const std::size_t skeleton = request("", "").size() - std::strlen("SetCmdOn ");
    store("volumePlus", std::string(255 - skeleton, 'A'), "None");
    EXPECT_EQ(capture([] { sendTrigger(rs232, volumeUp); }, stderr), "");
    store("volumePlus", std::string(256 - skeleton, 'A'), "None");
    EXPECT_EQ(capture([] { sendTrigger(rs232, volumeUp); }, stderr), tooLong);
    EXPECT_EQ(status(output(R"({"transmission":{"rs232":0}})")), "false");
    store("on", std::string(5000, 'A'), "CR");
    EXPECT_EQ(capture([] { sendTrigger(rs232, powerOn); }, stderr), tooLong);
    setConfig(commands(R"({"commandWait":true})"));
    EXPECT_EQ(capture([] { sendTrigger(rs232, powerOn); }, stderr), tooLong);
    EXPECT_EQ(calls().size(), 1U);
}

TEST_F(Triggers, EndWordsAreShownInBrackets) {
    store("volumePlus", "", "CR-LF");
    const auto show = [](const char* argument) {
        return capture([&] { reportEndWord({"line", "row", argument, true, "", order<reportEndWord>}); });
    };
    EXPECT_EQ(show("[VOL+]"), "SetEnd vol+[CR-LF]\r\n");
    EXPECT_EQ(show("[fbkOn]"), "SetEnd fbkon[LF]\r\n");
    EXPECT_EQ(show("[vol-]"), "");
    for (const char* wrong : {"", "[", "[]", "on", "[on", "[on] ", "[on]]"}) {
        EXPECT_EQ(show(wrong), "Command FAILED: (line)\r\n") << wrong;
    }
}

}  // namespace
