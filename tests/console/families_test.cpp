/// Every row that takes a number, a word or a switch, through its whole road with each of its values.
#include "console/command_table.h"
#include "tests/dialogue.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <set>

using namespace fake_platform;

namespace {

struct Accepted {
    Lines rows;
    Lines values;
    Lines others;  ///< what comes nearest to them
};

Accepted numbers(const Lines& rows, int first, int last) {
    return {rows, {std::to_string(first), std::to_string(last)}, {std::to_string(first - 1), std::to_string(last + 1)}};
}

Accepted words(const Lines& rows, const Lines& values) {
    Accepted accepted{rows, values, {"", "x"}};
    for (const std::string& value : values) {
        const char capital = static_cast<char>(std::toupper(value[0]));
        for (const std::string& other : {value + "x", value.substr(0, value.size() - 1), capital + value.substr(1)})
            accepted.others.push_back(other);
    }
    return accepted;
}

Accepted indexes(const Lines& rows, int last) {
    Accepted accepted{rows, {}, {"-1", std::to_string(last + 1)}};
    for (int index = 0; index <= last; ++index) accepted.values.push_back(std::to_string(index));
    return accepted;
}

/// All other rows with words are switches.
const std::vector<Accepted> acceptedValues = {
    numbers({"ASwOutTime"}, 3, 600),
    numbers({"ASwFstTime"}, 10, 600),
    numbers({"APwrOffTime"}, 5, 3600),
    numbers({"ProjWarmUpT", "ProjSWMode"}, 5, 300),
    numbers({"RelayPulseT"}, 1, 30),
    numbers({"VOUT"}, -80, 0),
    numbers({"EQ1 63", "EQ1 85", "EQ1 250", "EQ1 1K", "EQ1 4K"}, -12, 15),
    numbers({"HZoom", "VZoom"}, 0, 50),
    numbers({"BRT", "CTRST", "SATRT", "HUE", "SHARP"}, 0, 60),
    numbers({"CliPort"}, 1, 65536),
    numbers({"IPPort"}, 1, 65535),
    {{"IPTimeout"}, {"never", "1", "3600"}, {"3601", "-1"}},
    indexes({"PrefTimg1", "PrefTimg2"}, 11),
    indexes({"VidOutRes"}, 22),
    words({"EDIDMSet1", "EDIDMSet2"}, {"default", "save1", "int1", "int2", "int3", "int4"}),
    words({"USBHostLogic"}, {"follow usb", "follow video", "manual"}),
    words({"USBHostRoute"}, {"local", "remote"}),
    words({"RelayType"}, {"pulse", "closed"}),
    words({"RelayAct1", "RelayAct2"}, {"open", "close"}),
    words({"SetStrgType"}, {"ascii", "hex"}),
    words({"CliMode"}, {"login", "non-login"}),
    words({"CtlType"}, {"ip", "rs-232", "cec"}),
    words({"Aspect1"}, {"fill", "follow", "letter box"}),
};

Accepted acceptedBy(const CommandEntry& row) {
    for (const Accepted& accepted : acceptedValues) {
        if (std::ranges::count(accepted.rows, row.name) != 0) return accepted;
    }
    EXPECT_EQ(row.family.kind == LeafKind::number || row.family.words.size() != 2, false)
        << row.name << " is new: list its values above";
    return words({row.name}, {"on", "off"});
}

/// They store what is off.
const std::set<std::string> invertedRows = {"HDMIAUD", "LRAUD", "ScalerPtMode"};

/// The event that tells of a change again.
std::string announced(const std::string& document) { return branchOf(document) + "UserConfigChanged " + document; }

/// The reply with broadcast off.
std::string confirmation(const std::string& row, const std::string& value) {
    if (row == "Broadcast" || row == "InputBroadcast") return "";
    if (row.starts_with("EDIDMSet") || row == "USBHostLogic") return row + "[" + value + "]\r\n";
    return row + " " + (value == "letter box" ? "follow" : value) + "\r\n";
}

void expectWholeRoad(const CommandEntry& row, const std::string& value) {
    const std::string line = row.name + (" " + value);
    SCOPED_TRACE(line);
    makeNew();
    EXPECT_EQ(typed(line), confirmation(row.name, value));
    ASSERT_FALSE(updates().empty());
    const std::string document = updates().back();
    if (row.family.kind == LeafKind::truthValue) {
        EXPECT_EQ(document.find("true") != document.npos, (value == "on") != invertedRows.contains(row.name));
    }
    const bool hasStatus = std::string(row.name) != "USBHostRoute";
    EXPECT_EQ(typed(std::string(row.name) + " sta"), hasStatus ? line + "\r\n" : refused("USBHostRoute sta"));
    setBroadcast(true);
    EXPECT_EQ(shownOf(document), line + "\r\n");
    setConfig(document);
    const std::size_t before = published().size();
    EXPECT_EQ(typed(line), "");
    EXPECT_EQ(published().size(), before + 1);
    EXPECT_EQ(published().back(), announced(document));
}

TEST(FamiliesTest, EveryRowTakesItsValuesAndNoOthers) {
    for (const CommandEntry& row : commandTable()) {
        const Family& family = row.family;
        const bool takesNumber = family.kind == LeafKind::number && !family.range.isEmpty();
        if (!takesNumber && family.words.empty()) continue;
        if (std::string(row.name).starts_with("TrigCEC")) continue;  // an order, which stores nothing
        const Accepted accepted = acceptedBy(row);
        EXPECT_TRUE(takesNumber || family.words.size() == accepted.values.size()) << row.name;
        for (const std::string& value : accepted.values) expectWholeRoad(row, value);
        makeNew();
        for (const std::string& other : accepted.others) {
            const std::string line = row.name + (" " + other);
            EXPECT_EQ(typed(line), refused(line));
        }
        if (family.gate != nullptr) {
            const std::string line = row.name + (" " + accepted.values[0]);
            setConfig(R"({"video":{"vidProcess":{"scaler":{"scalerMode":false}}}})");
            EXPECT_EQ(typed(line), refused(line));
        }
        EXPECT_TRUE(updates().empty()) << row.name;
    }
}

}  // namespace
