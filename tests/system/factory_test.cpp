#include "tests/system/console.h"

#include <cstdio>

namespace {

using FactoryTest = ConsoleTest;

/// What a shell makes of the arguments of a factory tool line, each in brackets.
std::string argumentsOf(const std::string& line) {
    const std::string command = "printf '[%s]'" + line.substr(line.find(' '));
    std::FILE* output = popen(command.c_str(), "r");  // NOLINT(cert-env33-c): the shell is what is tested
    std::string arguments;
    for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) arguments += static_cast<char>(c);
    EXPECT_EQ(pclose(output), 0);
    return arguments;
}

TEST_F(FactoryTest, WritesAMacAddressAndTellsTheStatusStore) {
    const std::string reply = "SQrnMac zz-11-22-33-44-55\r\n";
    setFactoryData("MacAddr", "zz:11:22:33:44:55");
    EXPECT_EQ(type("SQrnMac zz-11-22-33-44-55"), reply);
    EXPECT_EQ(shellLines(), Lines{"/mnt/mtd/bin/factory_tool -w MacAddr zz:11:22:33:44:55"});
    EXPECT_EQ(updates(), Lines{R"({"network":{"eth0":{"macAddr":"zz:11:22:33:44:55"}}})"});
    fail("user_status_update");
    EXPECT_EQ(type("SQrnMac zz-11-22-33-44-55"), reply + "user_status_update\r\n");
    setFactoryData("MacAddr", "1:2:3:4:5:6:7");
    EXPECT_EQ(type("RQrnMac", "RQrnVID"), "1-2-3-4-5-6\r\n");
}

TEST_F(FactoryTest, HandsAnyValueToTheToolAsOneArgument) {
    for (const std::string value : {"x;touch y", "$(touch y)", "`touch y`", "a'b'\"c", "a  b & c | d > e ", "-x",
                                    "\\n%n", "*", "~root", "\x01\x1b\x7f", "\xff", "#"}) {
        reset();
        EXPECT_EQ(type("SQrnPID " + value), value + "\r\n");
        EXPECT_EQ(argumentsOf(shellLines().at(0)), "[-w][ProductID][" + value + "]");
    }
}

TEST_F(FactoryTest, WritesNothingThatDoesNotFitItsLine) {
    const std::string line = "/mnt/mtd/bin/factory_tool -w SerialNumber ";
    const std::string longest(255 - line.size(), '7');
    setFactoryData("SerialNumber", "as written");
    EXPECT_EQ(type("SQrnSN " + longest), "SQrnSN as written\r\n");
    EXPECT_EQ(complaintsAbout("SQrnSN " + longest + "7"), "factory_write_data: Message too long\n");
    EXPECT_EQ(shellLines(), Lines{line + longest});
}

}  // namespace
