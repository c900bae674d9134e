#include "console/change_walk.h"

#include "console/command_table.h"
#include "settings/feedback_printers.h"
#include "settings/leaf.h"
#include "tests/capture.h"
#include "tests/fake_platform/fake_platform.h"
#include "text/text.h"

#include <gtest/gtest.h>
#include <set>

using namespace fake_platform;

namespace {

/// What the console shows when it hears of `document`.
std::string heard(const std::string& document) {
    json_token* changes = json_token_parse(document.c_str());
    LineTurns turns;
    std::string text = capture([&] { walkChangedJson(changes, "audio", turns); });
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

TEST(ChangeWalkTest, EveryLeafIsShownByTheFirstRowThatHoldsIt) {
    reset();
    setConfig(R"({"system":{"broadcast":true,"inputBroadcast":true}})");
    setStatus(R"({"system":{"slaveMcu":{"isReady":true}}})");
    for (const std::string port : {"interface1", "interface2", "interface3"}) {
        setConfig(R"({"system":{"uart":{")" + port + R"(":{"baudrate":1,"databit":8,"parity":0,"stopbit":1}}}})");
    }
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
