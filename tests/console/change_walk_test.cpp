#include "console/command_table.h"
#include "settings/label.h"
#include "settings/leaf.h"
#include "tests/dialogue.h"
#include "text/text.h"

#include <gtest/gtest.h>
#include <set>

using namespace fake_platform;

namespace {

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

TEST(CommandTableTest, EveryLeafHasADefaultOfItsKind) {
    makeNew();
    for (const CommandEntry& row : commandTable()) {
        if (row.leaf[0] != '{') continue;
        const std::string query = documentsFor(row.leaf)[0];
        const std::string found = config(query).empty() ? status(query) : config(query);
        setConfig(query);
        EXPECT_EQ(kindOf(found), kindOf(config(query)))
            << row.name << ": host/store/defaults/ holds no value of its kind for " << row.leaf;
    }
}

TEST(ChangeWalkTest, EveryLeafIsShownByTheFirstRowThatHoldsIt) {
    makeNew();
    setBroadcast(true);
    const std::set<std::string> silent = {"Type", "debug", "dbg977"};
    // The netmask and the gateway continue the line that the address began.
    const auto beginning = [](const CommandEntry& row) {
        return std::strstr(row.leaf, "netmask") || std::strstr(row.leaf, "gateway") ? " " : row.name;
    };
    for (const CommandEntry& row : commandTable()) {
        if (row.leaf[0] != '{') continue;
        const CommandEntry* first = findLeaf(row.leaf);
        EXPECT_STREQ(first->leaf, row.leaf) << row.name << " is announced by " << first->name;
        std::string shown;
        for (const std::string& document : documentsFor(row.leaf)) shown += shownOf(document);
        const bool isShown = shown.rfind(beginning(*first), 0) == 0;
        EXPECT_EQ(isShown, silent.count(row.name) == 0) << row.name << ": " << shown;
    }
}

TEST(ChangeWalkTest, ALeafOfNoRowOrOfAnotherKindIsLogged) {
    makeNew();
    setLogLevel(9);
    setBroadcast(true);
    const Lines documents = {R"({"video":{"unknown":1}})",
                             R"({"video":{"colorSetting":{"brt":true}}})",
                             R"({"video":{"colorSetting":{"brt":"1"}}})",
                             R"({"control":{"ledMode":1}})",
                             R"({"control":{"ledMode":"on"}})",
                             R"({"video":{"vidOut":{"hdmiOut":{"hdmiOutA":{"aspect":1}}}}})"};
    for (const std::string& document : documents) EXPECT_EQ(shownOf(document), "") << document;
    EXPECT_EQ(logLines(), Lines(documents.size(), "5 [cipProcJson] Cant find command\r\n"));
}

TEST(LabelPrinterTest, TurnsCodesIntoCharacters) {
    const auto shown = [](const std::string& codes) {
        return capture([&codes] { printLabel({"L", label, {0, codes.c_str()}}); });
    };
    EXPECT_EQ(shown("48 69") + shown("  148   69 ") + shown(""), "L[Hi]\r\nL[Hi]\r\nL[]\r\n");
    EXPECT_EQ(shown("48 0 69") + shown("48 4G 69") + shown("25 6E"), "L[H]\r\nL[H]\r\nL[%n]\r\n");
    // A percent sign is settled before the codes are read.
    EXPECT_EQ(shown("4%d8") + shown("48 %5$n") + shown("%%") + shown("48%") + shown("%"),
              "L[H]\r\nL[H]\r\nL[]\r\nL[H]\r\nL[]\r\n");
    std::string longLabel;
    for (int i = 0; i < 300; ++i) longLabel += "41 ";
    EXPECT_EQ(shown(longLabel), "L[" + std::string(85, 'A') + "]\r\n");
}

}  // namespace
