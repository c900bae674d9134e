#include "platform/json_token.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using Token = std::unique_ptr<json_token, decltype(&json_token_ref_put)>;

Token parse(const std::string& text) { return {json_token_parse(text.c_str()), json_token_ref_put}; }

std::string textOf(const Token& token) { return json_token_to_string(token.get()); }

TEST(JsonToken, HostilePathsFindAndMakeNothing) {
    const Token root = parse(R"({"a":[1,{"b":2}],"":{"x":1}})");
    const std::string before = textOf(root);
    for (const char* path : {"", ".", "a.", ".a", "a[", "a[]", "a[x]", "a[-1]", "a[1", "a[1]b", "a..b", "a[1].",
                             "a[ 1]", "a[4096]", "a[99999999999999999999]", "a.b", "a[1][0]", "[0]", "a[0].b"}) {
        EXPECT_EQ(-1, json_token_object_walk_get_int(root.get(), path, -1)) << path;
        EXPECT_NE(0, json_token_object_walk_set_string(root.get(), path, "x")) << path;
        EXPECT_NE(0, json_token_object_walk_set_object(root.get(), path, json_token_new_object())) << path;
        EXPECT_EQ(before, textOf(root)) << path;
    }
}

TEST(JsonToken, ArraysGrowWithinBounds) {
    const Token array = parse("[0]");
    EXPECT_EQ(0, json_token_array_put(array.get(), 2, json_token_parse("2")));
    EXPECT_EQ("[0,null,2]", textOf(array));
    for (const int index : {-1, 4096, 2147483647}) {
        EXPECT_NE(0, json_token_array_put(array.get(), index, json_token_new_object()));
    }
    EXPECT_NE(0, json_token_array_put(nullptr, 0, json_token_new_object()));
    EXPECT_EQ(0, json_token_array_length(nullptr));
}

}  // namespace
