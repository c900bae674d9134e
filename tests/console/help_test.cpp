#include "tests/dialogue.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <strings.h>
#include <vector>

using namespace fake_platform;

namespace {

std::vector<std::string> words(const std::string& text) {
    std::istringstream input(text);
    return {std::istream_iterator<std::string>(input), {}};
}

TEST(HelpTest, TheListsAreInOrderAndEachOfTheirWordsHasAText) {
    const auto isBefore = [](auto& one, auto& other) { return strcasecmp(one.c_str(), other.c_str()) < 0; };
    const std::vector<std::string> withoutText = {"AutoDispOff", "AutoDispOn", "InputBroadcast", "SetLabel", "Statusx"};
    for (const std::string list : {"help", "techelp"}) {
        const std::vector<std::string> listed = words(typed(list));
        EXPECT_EQ(std::ranges::adjacent_find(listed, std::not_fn(isBefore)), listed.end()) << list;
        for (const std::string& word : listed) {
            const std::string text = typed("help " + word);
            const bool hasText = !text.empty() && !text.starts_with("Command FAILED");
            EXPECT_NE(hasText, std::ranges::count(withoutText, word) == 1) << word;
        }
    }
    EXPECT_NE(typed("help"), typed("techelp"));
}

}  // namespace
