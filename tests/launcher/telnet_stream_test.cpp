#include "host/launcher/telnet_stream.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using host::TelnetStream;
using namespace std::string_literals;

constexpr auto negotiating = TelnetStream::Kind::negotiating;
constexpr auto raw = TelnetStream::Kind::raw;

struct Conversation {
    std::string input;
    std::string typed;
    std::string replies;
};

const std::string offers = "\xff\xfb\x01\xff\xfb\x03"s;

std::string decodeInTwo(TelnetStream& stream, const std::string& input, std::size_t split) {
    const std::string typed = stream.decode(input.substr(0, split));
    return typed + stream.decode(input.substr(split));
}

void expectAtEverySplit(TelnetStream::Kind kind, const Conversation& conversation, const std::string& replies) {
    for (std::size_t split = 0; split <= conversation.input.size(); split += 1 + split / 100) {
        TelnetStream stream(kind);
        EXPECT_EQ(decodeInTwo(stream, conversation.input, split), conversation.typed) << "split at " << split;
        EXPECT_EQ(stream.takeReplies(), replies) << "split at " << split;
    }
}

TEST(TelnetStream, TakesCommandsOutOfTheInputAndAnswersOnTheTelnetPortOnly) {
    const std::string longOption(20'000, 'x');
    for (const Conversation& conversation : {
             Conversation{"Status\r\nLock\rUnlock\r\0x\n\0"s, "Status\r\nLock\rUnlock\rx\n\0"s, ""},
             Conversation{"a\r\xff\xf1\0b"s, "a\rb", ""},
             Conversation{"a\xff\xff"
                          "b\xff\xf4\xff\xf2"
                          "c",
                          "abc", ""},
             Conversation{"a\xff\xfd\x01\xff\xfd\x03\xff\xfd\x01z", "az", ""},
             Conversation{"a\xff\xfb\x18\xff\xfd\x05\xff\xfb\x18z", "az", "\xff\xfe\x18\xff\xfc\x05\xff\xfe\x18"},
             Conversation{"a\xff\xfd\x01\xff\xfe\x01\xff\xfe\x01z", "az", "\xff\xfc\x01"},
             Conversation{"a\xff\xfe\x01\xff\xfe\x03z", "az", "\xff\xfc\x01\xff\xfc\x03"},
             Conversation{"a\xff\xfe\x01\xff\xfd\x01\xff\xfe\x05z", "az", "\xff\xfc\x01\xff\xfb\x01"},
             Conversation{"a\xff\xfb\x03\xff\xfb\x03\xff\xfc\x03\xff\xfc\x18z", "az", "\xff\xfd\x03\xff\xfe\x03"},
             Conversation{"a\xff\xf6z", "az", "\r\n[yes]\r\n"},
             Conversation{"a\xff\xfa\x27\0\0USER\1root\xff\xf0z"s, "az", ""},
             Conversation{"a\xff\xfa\x56\xff\xf0z", "az", ""},
             Conversation{"a\xff\xfa\x55\xfbz\xff\xf0z", "az", ""},
             Conversation{"a\xff\xfa\x18x\xff\xff\xf0x\xff\xf1x\xff\xfax\xff\xf0z", "az", ""},
             Conversation{"a\xff\xfa\x18" + longOption + "\xff\xf0z", "az", ""},
             Conversation{"a\xff\xfa\x18" + longOption, "a", ""},
         }) {
        expectAtEverySplit(negotiating, conversation, offers + conversation.replies);
        expectAtEverySplit(raw, conversation, "");
    }
}

TEST(TelnetStream, TypesNoByteOfTheProtocolWhateverThePieces) {
    const std::string bytes = "ab\r\n\0\1\3\x18\xf0\xf1\xf6\xfa\xfb\xfc\xfd\xfe\xff\xff\xff"s;
    std::mt19937 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same texts in every run
    for (int i = 0; i < 20'000; ++i) {
        std::string input(1 + random() % 40, ' ');
        for (char& byte : input) byte = bytes[random() % bytes.size()];
        for (const auto kind : {negotiating, raw}) {
            TelnetStream whole(kind), pieces(kind);
            const std::string typed = whole.decode(input);
            ASSERT_EQ(typed.find('\xff'), typed.npos) << testing::PrintToString(input);
            ASSERT_EQ(decodeInTwo(pieces, input, random() % input.size()), typed) << testing::PrintToString(input);
            ASSERT_EQ(pieces.takeReplies(), whole.takeReplies()) << testing::PrintToString(input);
        }
    }
}

TEST(TelnetStream, EscapesTheConsolesBytesOnTheTelnetPortOnly) {
    const std::string output = "\r\n%s\0\xff\xff\xf0"s;
    TelnetStream telnet(negotiating), bytes(raw);
    EXPECT_EQ(telnet.takeReplies(), offers);
    EXPECT_EQ(telnet.encode(output), "\r\n%s\0\xff\xff\xff\xff\xf0"s);
    EXPECT_EQ(bytes.encode(output), output);
}

}  // namespace
