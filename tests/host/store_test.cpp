#include "host/store/defaults.h"
#include "host/store/preparation.h"
#include "platform/user_config.h"
#include "platform/user_status.h"
#include "tests/host/numbered_tree.h"
#include "tests/host/test_root.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace {

using host::Store;

using Events = std::vector<std::string>;

constexpr char everything[] = "{}";

std::string contentOf(Store& store) { return store.readText(everything).value_or("none"); }

TEST(Store, AnnouncesEveryBranchThatChangedInItsOwnWords) {
    Store store(newStore(R"({"audio":{"volume":1},"video":{"src":1},"system":{"name":"a"}})"));
    takePublished();
    EXPECT_TRUE(store.update(R"( {"video":{ "src":2, "path":"a/b" },"audio":{"volume":1},"system":{"name":"b"}} )"));
    EXPECT_EQ((Events{R"(videoChanged {"video":{"src":2,"path":"a/b"}})", R"(systemChanged {"system":{"name":"b"}})"}),
              takePublished());
    // All of the branch is told, the members in the order in which they came; nothing of it when no value changed.
    EXPECT_TRUE(store.update(R"({"video":{"z":1,"src":2,"a":1}})"));
    EXPECT_TRUE(store.update(R"({"video":{"z":1,"src":2,"a":1}})"));
    EXPECT_EQ(Events{R"(videoChanged {"video":{"z":1,"src":2,"a":1}})"}, takePublished());
}

TEST(Store, TakesNothingForUnchangedThatAnotherHasChanged) {
    const host::StoreKind kind = newStore(R"({"a":1})");
    Store one(kind), other(kind);
    for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(1, readInt(one, R"({"a":0})"));
        ASSERT_TRUE(other.update(R"({"a":2})"));
        EXPECT_TRUE(one.update(R"({"a":1})"));
        EXPECT_EQ("1", other.readText(R"({"a":0})"));
    }
}

TEST(Store, RefusesWhatItCouldNotStoreAsItStands) {
    Store store(newStore(R"({"a":1})"));
    takePublished();
    const auto expectRefused = [&store](std::initializer_list<std::string> documents) {
        for (const std::string& document : documents) {
            errno = 0;
            EXPECT_FALSE(store.update(document.c_str())) << document.substr(0, 40);
            EXPECT_EQ(EINVAL, errno);
        }
    };
    expectRefused({"", "1", "[]", "null", "\"a\"", R"({"a":2)", R"({"a":2} {"a":3})", R"({"a":2}})"});
    expectRefused({R"({"a":2,})", R"({a:2})", R"({"a":'2'})", R"({"a":02})", R"({"a":"x)", R"({"a":NaN})"});
    expectRefused({R"({"a":1e999})", R"({"a":99999999999999999999})", R"({"a":[-99999999999999999999]})"});
    expectRefused({R"({"a":"\u0000"})", R"({"a\u0000b":2})", R"({"b":2,"a":"\q"})"});
    std::string nested = "1";
    for (int depth = 0; depth < 40; ++depth) nested = R"({"a":)" + nested + "}";
    expectRefused({nested, std::string(100000, '['), std::string(100000, '{')});
    EXPECT_EQ(R"({"a":1})", contentOf(store));
    EXPECT_EQ(Events{}, takePublished());
}

/// What the program sees, on the stores of this process.
class Queries : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(host::prepareKeptStore(host::settingsKind, host::defaultSettings));
        ASSERT_TRUE(host::prepareFreshStore(host::statusKind, host::defaultStatus));
    }
};

TEST_F(Queries, SeeAChangeAtOnceAndNoOther) {
    // The same query text again and again, so that it is answered from memory where that is right.
    const char* query = R"({"cache":{"x":0}})";
    int value = -1;
    EXPECT_EQ(0, user_config_query_int(query, &value));
    for (int i = 0; i < 300; ++i) {
        ASSERT_EQ(0, user_config_update((R"({"cache":{"x":)" + std::to_string(i) + "}}").c_str()));
        ASSERT_EQ(0, user_config_update((R"({"cache":{"y)" + std::to_string(i) + R"(":0}})").c_str()));
        ASSERT_NE(0, user_config_query_int(query, &value));
        ASSERT_EQ(i, value);
    }
    ASSERT_EQ(0, user_config_update(R"({"cache":"gone"})"));
    EXPECT_EQ(0, user_config_query_int(query, &value));
}

}  // namespace
