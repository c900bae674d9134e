/// A console on an empty device in memory, with broadcast off, so that every command answers by itself.
#pragma once

#include "double/platform_double.h"
#include "tests/typed.h"

#include <gtest/gtest.h>

using namespace platform_double;

class ConsoleTest : public testing::Test {
  protected:
    ConsoleTest() { reset(); }
    static void setBroadcast() { setConfig(R"({"system":{"broadcast":true}})"); }
};

/// What the console answers to lines typed one after the other.
template <typename... Line>
std::string type(const Line&... lines) {
    std::string replies;
    ((replies += typed(lines)), ...);
    return replies;
}

inline std::string refusal(const std::string& line) { return "Command FAILED: (" + line + ")\r\n"; }
