#include "console/change_walk.h"

#include "console/command_table.h"
#include "double/platform_double.h"
#include "settings/feedback_printers.h"
#include "settings/leaf.h"
#include "tests/capture.h"
#include "text/text.h"

#include <gtest/gtest.h>
#include <set>

using namespace platform_double;

namespace {

class ChangeWalkTest : public testing::Test {
  protected:
    ChangeWalkTest() {
        reset();
        setConfig(R"({"system":{"broadcast":true,"inputBroadcast":true}})");
        setStatus(R"({"system":{"slaveMcu":{"isReady":true}}})");
        setLogLevel(5);
    }
};

/// What the console shows when it hears of `document`.
std::string heard(const std::string& document) {
    json_token* changes = json_token_parse(document.c_str());
    std::string text = capture([changes] { walkChangedJson(changes, "audio"); });
    json_token_ref_put(changes);
    return text;
}

/// The documents that set the leaf of a row to something that its printer may know.
Lines documentsFor(const std::string& leaf) {
    if (leaf.find("%d") != std::string::npos) return {fillInteger(leaf.c_str(), 1).c_str()};
    if (leaf.find("\"%s\"") == std::string::npos) return {fillBoolean(leaf.c_str(), true).c_str()};
    Lines documents;
    for (const char* word : {"compliant", "STATIC", "Native", "1024x768p60", "local"}) {
        documents.push_back(fillText(leaf.c_str(), word).c_str());
    }
    return documents;
}

TEST_F(ChangeWalkTest, EveryLeafIsShownByTheFirstRowThatHoldsIt) {
    setConfig(R"({"system":{"uart":{"interface1":{"baudrate":1,"databit":8,"parity":0,"stopbit":1}}}})");
    setConfig(R"({"system":{"uart":{"interface2":{"baudrate":1,"databit":8,"parity":0,"stopbit":1}}}})");
    setConfig(R"({"system":{"uart":{"interface3":{"baudrate":1,"databit":8,"parity":0,"stopbit":1}}}})");
    const std::set<std::string> silent = {"Type", "debug", "dbg977"};
    // The netmask and the gateway continue the line that the address began.
    const auto beginning = [](const CommandEntry& row) {
        return std::strstr(row.leaf, "netmask") || std::strstr(row.leaf, "gateway") ? " " : row.name;
    };
    int leaves = 0;
    for (const CommandEntry& row : commandTable()) {
        if (row.leaf[0] != '{') continue;
        ++leaves;
        const CommandEntry* first = findLeaf(row.leaf);
        EXPECT_STREQ(first->leaf, row.leaf) << row.name << " is announced by " << first->name;
        std::string shown;
        for (const std::string& document : documentsFor(row.leaf)) shown += heard(document);
        const bool isShown = shown.rfind(beginning(*first), 0) == 0;
        EXPECT_EQ(isShown, silent.count(row.name) == 0) << row.name << ": " << shown;
    }
    EXPECT_EQ(leaves, 85);
}

TEST_F(ChangeWalkTest, OnlyLeavesThatTheTableKnowsAreShownAndTheRestIsLogged) {
    EXPECT_EQ(heard(R"({"control":{"ledMode":true,"x":{"ledMode":false},"autoSwitch":{"aswOutTime":5,"y":[1]}}})"),
              "Blink on\r\nASwOutTime 5\r\n");
    EXPECT_EQ(logLines(), Lines{"5 [cipProcJson] Cant find command\r\n"});
    for (const char* document : {"true", "5", "\"text\"", "2.5", "[]", "{}", R"({"control":{"ledMode":1.0}})",
                                 R"({"control":{"ledMode":null}})", R"({"control":{"":{"":true}}})",
                                 R"({"%n%s%d":"%n"})", R"({"control":{"ledMode":{"%s":true}}})"}) {
        EXPECT_EQ(heard(document), "") << document;
    }
    EXPECT_EQ(heard(R"({"control":{")" + std::string(3000, 'k') + R"(":{"ledMode":true}}})"), "");
}

TEST_F(ChangeWalkTest, NothingIsShownUnlessBothQueriesSucceed) {
    for (const char* query : {"user_config_query_boolean", "user_status_query_boolean"}) {
        fail(query);
        EXPECT_EQ(heard(R"({"system":{"broadcast":true}})"), "") << query;
        reset();
    }
}

TEST(FeedbackPrinterTest, PrintsWhatItKnowsAndNothingElse) {
    const auto print = [](Feedback printer, const ChangedValue& value) {
        return capture([&] { printer("Row", value); });
    };
    EXPECT_EQ(print(printOnOff, {1}) + print(printOnOff, {2}), "Row on\r\n");
    EXPECT_EQ(print(printInvertedOnOff, {1}) + print(printInvertedOnOff, {-1}), "Row off\r\n");
    EXPECT_EQ(print(printLock, {0}) + print(printLock, {1}) + print(printLock, {2}), "Unlock\r\nLock\r\n");
    EXPECT_EQ(print(printHdcpMode, {0, "non-compliant"}) + print(printHdcpMode, {0, ""}), "Row off\r\n");
    EXPECT_EQ(print(printEdidMemory, {8}) + print(printEdidMemory, {9}) + print(printEdidMemory, {-1}), "Row mem8\r\n");
    EXPECT_EQ(print(printUsbHostRoute, {0, "remote"}) + print(printUsbHostRoute, {0, "x"}), "Row remote\r\n");
    for (Feedback printer : {printNameAndText, printLabel, printHdcpMode}) EXPECT_EQ(print(printer, {7}), "");
    for (Feedback printer : {printNameAndInteger, printOnOff, printLock}) EXPECT_EQ(print(printer, {1, "x"}), "");
}

TEST(LabelPrinterTest, TurnsCodesIntoCharacters) {
    const auto label = [](const std::string& codes) {
        return capture([&codes] { printLabel("L", {0, codes.c_str()}); });
    };
    EXPECT_EQ(label("48 69") + label("  148   69 ") + label(""), "L[Hi]\r\nL[Hi]\r\nL[]\r\n");
    EXPECT_EQ(label("48 0 69") + label("48 4G 69") + label("25 6E"), "L[H]\r\nL[H]\r\nL[%n]\r\n");
    // A percent sign is settled before the codes are read.
    EXPECT_EQ(label("4%d8") + label("48 %5$n") + label("%%") + label("48%") + label("%"),
              "L[H]\r\nL[H]\r\nL[]\r\nL[H]\r\nL[]\r\n");
    std::string longLabel;
    for (int i = 0; i < 300; ++i) longLabel += "41 ";
    EXPECT_EQ(label(longLabel), "L[" + std::string(85, 'A') + "]\r\n");
}

}  // namespace
