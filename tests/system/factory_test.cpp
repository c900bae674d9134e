#include "tests/system/console.h"

#include <cstdio>

namespace {

using FactoryTest = ConsoleTest;

const std::string tool = "/mnt/mtd/bin/factory_tool";

/// What a shell makes of the arguments of a factory tool line, each in brackets.
std::string argumentsOf(const std::string& line) {
    const std::string command = "printf '[%s]'" + line.substr(tool.size());
    std::FILE* output = popen(command.c_str(), "r");
    std::string arguments;
    for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) arguments += static_cast<char>(c);
    EXPECT_EQ(pclose(output), 0);
    return arguments;
}

TEST_F(FactoryTest, WritesAMacAddressAndTellsTheStatusStore) {
    const std::string reply = "SQrnMac zz-11-22-33-44-55\r\n";
    setFactoryData("MacAddr", "zz:11:22:33:44:55");
    EXPECT_EQ(type("SQrnMac zz-11-22-33-44-55"), reply);
    EXPECT_EQ(shellLines(), Lines{tool + " -w MacAddr zz:11:22:33:44:55"});
    EXPECT_EQ(updates(), Lines{R"({"network":{"eth0":{"macAddr":"zz:11:22:33:44:55"}}})"});
    fail("user_status_update");
    EXPECT_EQ(type("SQrnMac zz-11-22-33-44-55"), reply + "user_status_update\r\n");
    setFactoryData("MacAddr", "1:2:3:4:5:6:7");
    EXPECT_EQ(type("RQrnMac"), "1-2-3-4-5-6\r\n");
}

TEST_F(FactoryTest, RefusesMissingAndWrongArguments) {
    for (const std::string line : {"SQrnMac", "SQrnMac 00-11-22-33-44", "SQrnMac 00:11:22:33:44:55",
                                   "SQrnMac 0-1-2-3-4-5-6", "RQrnMac x", "RQrnSN x", "SQrnSN", "SQrnPID"}) {
        EXPECT_EQ(type(line), refusal(line));
    }
    EXPECT_TRUE(shellLines().empty());
}

TEST_F(FactoryTest, HandsAnyValueToTheToolAsOneArgument) {
    for (const std::string value : {"x;touch y", "$(touch y)", "`touch y`", "a'b'\"c", "a  b & c | d > e", "-x",
                                    "\\n%n", "*", "~root", "\x01\x1b\x7f", "\xff", "#"}) {
        reset();
        type("SQrnSN " + value);
        ASSERT_EQ(shellLines().size(), 1U);
        EXPECT_EQ(argumentsOf(shellLines()[0]), "[-w][SerialNumber][" + value + "]");
    }
}

TEST_F(FactoryTest, SaysOnStandardErrorThatAWriteFailed) {
    const std::string longest(255 - (tool + " -w SerialNumber ").size(), '7');
    setFactoryData("SerialNumber", "old");
    EXPECT_EQ(typeAndHear("SQrnSN " + longest), "SQrnSN old\r\n");
    EXPECT_EQ(typeAndHear("SQrnSN " + longest + "7"), "factory_write_data: Message too long\n");
    EXPECT_EQ(shellLines().size(), 1U);
    setShellStatus(1);
    EXPECT_EQ(typeAndHear("SQrnPID 7"), "factory_write_data: Input/output error\n");
    EXPECT_EQ(typeAndHear("SQrnMac 0-1-2-3-4-5"), "");
}

}  // namespace
