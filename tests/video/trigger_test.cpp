#include "video/trigger.h"

#include "double/platform_double.h"
#include "tests/typed.h"
#include "video/end_word_report.h"
#include "video/trigger_pacing.h"

#include <gtest/gtest.h>

using namespace platform_double;

namespace {

std::string output(const std::string& values) { return R"({"control":{"displayControl":{"output1":)" + values + "}}}"; }
std::string commands(const std::string& values) { return output(R"({"triger":{"command":)" + values + "}}"); }

void store(const std::string& key, const std::string& content, const std::string& end) {
    setConfig(
        commands(R"({"content":{")" + key + R"(":")" + content + R"("},"end":{")" + key + R"(":")" + end + R"("}})"));
}

/// A call as the daemons get it; `start` and `flags` are fields as they stand in it.
std::string request(const std::string& sent, const std::string& expected,
                    const std::string& flags = R"("fbEndNone":0,"leadingFlag":1,"writeNull":0,"readNull":0)",
                    const std::string& start = R"("fiveSecDelay":0 ,"fbVerify":0 ,"sendcount":1 )") {
    return R"(SetCmdOn {"displayControl":{)" + start + R"(,"sendData":")" + sent + R"(","fbData":")" + expected +
           R"(",)" + flags + "}}";
}

class Triggers : public testing::Test {
  protected:
    Triggers() {
        reset();
        store("on", "50 57 52", "CR");
        store("feedbackOn", "4F 4B", "LF");
    }

    const std::string powerRequest = request("50 57 52 0D", "4F 4B 0A");
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

TEST_F(Triggers, OnlyTheLinesOfPowerReachAStringAndStoredTextsStayInsideIt) {
    store("on", R"(\",\"x\":\"%n)", "None");
    for (const char* row : {"TrigRS1 mute", "TrigRS1 vol+", "TrigIP1 vol-", "TrigIP1 on x", "TrigIP1 on "}) {
        EXPECT_EQ(typed(row), "");
    }
    EXPECT_EQ(calls(), Lines{});
    EXPECT_EQ(typed("TrigIP1 on"), "");
    EXPECT_EQ(calls(), Lines{"displayControlTelnetClient " + request(R"(\",\"x\":\"%n)", "4F 4B 0A")});
}

TEST_F(Triggers, ABusyTransportOrAMissingTextDropsTheCommand) {
    setStatus(output(R"({"transmission":{"rs232":true}})"));
    store("mute", "4D", "CR");
    sendTrigger(rs232, powerOn);
    sendTrigger(telnet, volumeUp);
    sendTrigger(telnet, mute);
    EXPECT_EQ(calls(), Lines{});
    sendTrigger(telnet, powerOn);
    EXPECT_EQ(calls(), Lines{"displayControlTelnetClient " + powerRequest});
}

TEST_F(Triggers, ARepeatedStringIsRepeatedInItsFirstPieceOnly) {
    setConfig(commands(R"({"repeat":true,"repeatTimes":3,"commandWait":true})"));
    store("on", "2c 41  42 2c 43 2c 2c 44", "None");
    sendTrigger(rs232, powerOn);
    const auto piece = [](const char* words, int waits, int count, int leading) {
        return "displayControl " +
               request(words, "4F 4B 0A",
                       R"("fbEndNone":1,"leadingFlag":)" + std::to_string(leading) + R"(,"writeNull":0,"readNull":0)",
                       "\"fiveSecDelay\":" + std::to_string(waits) + R"( ,"fbVerify":1 ,"sendcount":)" +
                           std::to_string(count) + " ");
    };
    EXPECT_EQ(calls(), (Lines{piece("41 42", 1, 3, 1), piece("43", 1, 1, 0), piece("44", 2, 1, 0)}));
}

TEST_F(Triggers, TheWalkEndsWithWhatIsLeftEvenIfThatIsNothing) {
    const auto walk = [](const char* content) {
        std::string pieces;
        sendInPieces(content, [&pieces](const TriggerPiece& piece) {
            pieces += "[" + std::string(piece.words.c_str()) + "]" + std::to_string(piece.waits);
            return true;
        });
        return pieces;
    };
    EXPECT_EQ(walk("41 2c 42 2c 2c 43"), "[41]0[42]1[43]2");
    EXPECT_EQ(walk("41 2c"), "[41]0[]1");
    EXPECT_EQ(walk("2c 2c"), "[]2");
    EXPECT_EQ(walk(" 2C 2cc c2 "), "[2C 2cc c2]0");
    EXPECT_EQ(walk(""), "[]0");
}

TEST_F(Triggers, AFailedCallFreesTheTransportAndEndsThePieces) {
    setConfig(commands(R"({"commandWait":true})"));
    store("on", "41 2c 42 2c 43", "CR");
    setLogLevel(8);
    failAfter("lpc_proxy_call", 1, ENOENT);
    fail("user_status_update");
    EXPECT_EQ(captureErrors([] { sendTrigger(telnet, powerOn); }), "lpc_proxy_call: No such file or directory\n");
    EXPECT_EQ(calls().size(), 1U);
    EXPECT_EQ(logLines(), (Lines{"8  *************C. displayControlStatus off\r\n", "5 1 user_config_update"}));
}

TEST_F(Triggers, ARequestThatDoesNotFitIsAFailedCall) {
    const std::size_t skeleton = request("", "").size() - std::strlen("SetCmdOn ");
    store("volumePlus", std::string(255 - skeleton, 'A'), "None");
    EXPECT_EQ(captureErrors([] { sendTrigger(rs232, volumeUp); }), "");
    store("volumePlus", std::string(256 - skeleton, 'A'), "None");
    EXPECT_EQ(captureErrors([] { sendTrigger(rs232, volumeUp); }), tooLong);
    EXPECT_EQ(status(output(R"({"transmission":{"rs232":0}})")), "false");
    store("on", std::string(5000, 'A'), "CR");
    EXPECT_EQ(captureErrors([] { sendTrigger(rs232, powerOn); }), tooLong);
    setConfig(commands(R"({"commandWait":true})"));
    EXPECT_EQ(captureErrors([] { sendTrigger(rs232, powerOn); }), tooLong);
    EXPECT_EQ(calls().size(), 1U);
}

TEST_F(Triggers, TheButtonSendsOverTheConfiguredControlType) {
    for (const char* key : {"mute", "feedbackMute"}) store(key, "4D", "CR");
    for (const char* type : {"rs-232", "ip", "cec", "smoke"}) {
        setConfig(output(R"({"controlType":")" + std::string(type) + "\"}"));
        EXPECT_EQ(typed("DispBtn mute"), "");
    }
    EXPECT_EQ(calls(), (Lines{"displayControl " + request("4D 0D", "4D 0D"),
                              "displayControlTelnetClient " + request("4D 0D", "4D 0D"), "intermcud TrigCEC mute"}));
}

TEST_F(Triggers, TheButtonStoresAndTellsThePower) {
    EXPECT_EQ(typed("DispBtn sta"), "");
    EXPECT_EQ(typed("DispBtn tog"), "DispBtn on\r\n");
    EXPECT_EQ(typed("DispBtn tog"), "DispBtn off\r\n");
    EXPECT_EQ(typed("DispBtn sta"), "DispBtn off\r\n");
    setConfig(R"({"system":{"broadcast":true}})");
    EXPECT_EQ(typed("DispBtn on"), "");
    EXPECT_EQ(published(), Lines{"CommandFeedback DispBtn on"});
    EXPECT_EQ(config(output(R"({"buttonControl":{"power":""}})")), "\"on\"");
    fail("user_config_update");
    EXPECT_EQ(typed("DispBtn off"), "");
    EXPECT_EQ(published().size(), 1U);
    EXPECT_EQ(typed("DispBtn"), "Command FAILED: (DispBtn)\r\n");
}

TEST_F(Triggers, CecIsAnnouncedAndNeverStored) {
    fail("lpc_proxy_call", 1);
    EXPECT_EQ(typed("TrigCEC vol+"), "TrigCEC vol+\r\n");
    EXPECT_EQ(published(), Lines{"controlUserConfigChanged " + output(R"({"triger":{"cec":"vol+"}})")});
    EXPECT_EQ(updates(), Lines{});
    EXPECT_EQ(typed("TrigCEC2 on"), "Command FAILED: (TrigCEC2 on)\r\n");
}

TEST_F(Triggers, EndWordsAreShownInBrackets) {
    store("volumePlus", "", "CR-LF");
    const auto show = [](const char* argument) {
        return capture([&] { reportEndWord({"line", "row", argument, true, ""}); });
    };
    EXPECT_EQ(show("[VOL+]"), "SetEnd vol+[CR-LF]\r\n");
    EXPECT_EQ(show("[fbkOn]"), "SetEnd fbkon[LF]\r\n");
    EXPECT_EQ(show("[vol-]"), "");
    for (const char* wrong : {"", "[", "[]", "on", "[on", "[on] ", "[on]]"}) {
        EXPECT_EQ(show(wrong), "Command FAILED: (line)\r\n") << wrong;
    }
}

}  // namespace
