#include "video/link_report.h"

#include "tests/capture.h"
#include "tests/fake_platform/fake_platform.h"

#include <gtest/gtest.h>
#include <memory>

using namespace fake_platform;

namespace {

/// A status text with the given device code and values that tell every field and channel from the others.
std::string transmitter(const std::string& code) {
    return "TX:" + code + "05" + "08D9EE20" + "0000000D" + "0000000C" + "0000000B" + "0000000A" + "D1C1B1A1" + "1E" +
           "00000141" + "00000152";
}
std::string receiver(const std::string& code) {
    return "RX:" + code + "01" + "08D9EE21" + "FFFFFFFF" + "0000002C" + "0000002B" + "0000002A" + "D2C2B2A2" + "1F" +
           "00000241" + "00000252";
}

const std::string tr3422Sender = transmitter("92");
const std::string tr3422Receiver = receiver("12");

std::string report(const std::string& selector, const std::string& tx = tr3422Sender,
                   const std::string& rx = tr3422Receiver) {
    return capture([&] { linkReport(selector.c_str(), tx.c_str(), rx.c_str()); });
}

std::string channels(const std::string& title, const std::string& d, const std::string& c, const std::string& b,
                     const std::string& a) {
    return title + "\r\n  Channel D:" + d + "\r\n  Channel C:" + c + "\r\n  Channel B:" + b + "\r\n  Channel A:" + a +
           "\r\n";
}

/// What each selector prints, in the order of "all".
const std::pair<std::string, std::string> reports[] = {
    {"maxerr",
     channels("TX - MaxErr :", "209", "193", "177", "161") + channels("RX - MaxErr :", "210", "194", "178", "162")},
    {"mse", channels("TX - MSE :", "13", "12", "11", "10") + channels("RX - MSE :", "-1", "44", "43", "42")},
    {"hpd", "TX - HPD : on\r\nRX - HPD : on\r\n"},
    {"5vstat", "TX - 5V HDMI : on\r\nRX - 5V HDMI : off\r\n"},
    {"devtype", "TX - Device : TR3422\r\nRX - Device : TR3422\r\n"},
    {"tmdsclk", "TX - TMDS Clock : 148500000\r\nRX - TMDS Clock : 148500001\r\n"},
    {"ber", "TX - Total BER : 321\r\nRX - Total BER : 577\r\n"},
    {"retr", "TX - Retransmission rate :338\r\nRX - Retransmission rate :594\r\n"},
    {"cablelen", "TX - Cable length : 30\r\nRX - Cable length : 31\r\n"},
};

std::string document(const std::string& side, const std::string& values) {
    return R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"linkMonitoring":{")" + side + R"(":{)" + values + "}}}}}}}";
}

const std::string txMaxErrors =
    document("TX", R"("maxErr":{"channelA":161,"channelB":177,"channelC":193,"channelD":209})");
const std::string rxMaxErrors =
    document("RX", R"("maxErr":{"channelA":162,"channelB":178,"channelC":194,"channelD":210})");
const std::string rxRetransmissions = document("RX", R"("retr":594)");
const std::string txMse = document("TX", R"("MSE":{"channelA":10,"channelB":11,"channelC":12,"channelD":13})");
const std::string rxMse = document("RX", R"("MSE":{"channelA":42,"channelB":43,"channelC":44,"channelD":-1})");

std::string txState(const std::string& model) {
    return document(
        "TX", R"("cableLength":30,"TMDSClock":148500000,"HPDstatus":true,"5Vstatus":true,"chipType":")" + model + "\"");
}
std::string rxState(const std::string& model) {
    return document("RX", R"("cableLength":31,"TMDSClock":148500001,"totalBER":577,"retr":594,"HPDstatus":true,)"
                          R"("5Vstatus":false,"chipType":")" +
                              model + "\"");
}

class LinkReport : public testing::Test {
  protected:
    LinkReport() { reset(); }

    static Lines update(const std::string& tx, const std::string& rx) {
        reset();
        linkReport("update", tx.c_str(), rx.c_str());
        return updates();
    }

    /// What the console prints for a change of these link-monitoring leaves.
    static std::string answer(const std::string& leaves, const std::string& tx = tr3422Sender) {
        const std::string change =
            R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"linkMonitoring":{"TX":{"allHexString":")" + tx +
            R"("},"RX":{"allHexString":")" + tr3422Receiver + "\"}" + leaves + "}}}}}}";
        const std::unique_ptr<json_token, void (*)(json_token*)> token(json_token_parse(change.c_str()),
                                                                       json_token_ref_put);
        return capture([&] { answerLinkRequest(token.get()); });
    }
};

TEST_F(LinkReport, EverySelectorPrintsItsLinesAndAllPrintsThemAll) {
    std::string all;
    for (const auto& [selector, lines] : reports) {
        EXPECT_EQ(report(selector), lines);
        all += lines;
    }
    EXPECT_EQ(report("all"), all);
    EXPECT_EQ(report("All"), "");
    EXPECT_EQ(report(""), "");
}

TEST_F(LinkReport, HexLinesOfKnownDevicesAreComposedDifferently) {
    const std::string sent = "TX:920508D9EE200000000D0000000C0000000B0000000AD1C1B1A11E\r\n";
    const std::string received = "RX:120100000241FFFFFFFF0000002C0000002B0000002A000002521F\r\n";
    EXPECT_EQ(report("allhex"), sent + received);
    EXPECT_EQ(report("allhex", transmitter("81")), received);
    EXPECT_EQ(report("allhex", tr3422Sender, receiver("92")), sent);
}

TEST_F(LinkReport, EveryDeviceHasItsCodes) {
    const Lines devices[] = {{"81", "01", "TR11"},   {"82", "02", "TR120"},  {"91", "11", "TR3100"},
                             {"92", "12", "TR3422"}, {"93", "13", "TR3421"}, {"97", "17", "TR3221"},
                             {"9F", "1F", "TR3121"}, {"00", "00", ""}};
    for (const Lines& device : devices) {
        const std::string model = device[2], tx = transmitter(device[0]), rx = receiver(device[1]);
        EXPECT_EQ(report("devtype", tx, rx), "TX - Device : " + model + "\r\nRX - Device : " + model + "\r\n");
        EXPECT_EQ(report("allhex", tx, rx).empty(), model.size() < 6) << model;  // those of four digits are known
    }
}

TEST_F(LinkReport, WhatCannotBeDecodedReadsAsZero) {
    std::string broken = tr3422Sender;
    broken[58] = 'x';
    EXPECT_EQ(report("ber", broken), "TX - Total BER : 0\r\nRX - Total BER : 577\r\n");
    EXPECT_EQ(report("ber", tr3422Receiver, "RX:12"), "TX - Total BER : 0\r\nRX - Total BER : 0\r\n");
    EXPECT_EQ(report("allhex", tr3422Receiver, ""), "");
}

TEST_F(LinkReport, UpdateIsGatedByTheKnownDevices) {
    EXPECT_EQ(update(tr3422Sender, tr3422Receiver),
              (Lines{txMaxErrors, rxRetransmissions, txMse, rxMse, txState("TR3422"), rxState("TR3422")}));
    EXPECT_EQ(update(tr3422Sender, receiver("01")), (Lines{txMaxErrors, rxMse, txState("TR3422"), rxState("TR11")}));
    EXPECT_EQ(update(transmitter("81"), tr3422Receiver),
              (Lines{txMaxErrors, rxMaxErrors, txMse, rxMse, txState("TR11"), rxState("TR3422")}));
    EXPECT_EQ(update(transmitter("00"), receiver("00")),
              (Lines{txMaxErrors, rxMaxErrors, rxMse, txState(""), rxState("")}));
}

TEST_F(LinkReport, WhoAskedDecidesTheReport) {
    const std::string stat = R"(,"respondFrom":"stat","requestStatusValue":"ber","trigerBy":)";
    EXPECT_EQ(answer(stat + R"("RS232")"), report("allhex"));
    EXPECT_EQ(answer(stat + R"("RS232ShowAll")"), report("ber"));
    EXPECT_EQ(answer(R"(,"respondFrom":"stat","trigerBy":"RS232ShowAll")"), "");
    EXPECT_EQ(answer(R"(,"respondFrom":"perf","trigerBy":"RS232")"), "");
    EXPECT_EQ(answer(R"(,"trigerBy":"RS232")"), "");
    EXPECT_EQ(answer(stat + "1"), "");
    EXPECT_EQ(answer(stat + R"("RS232")", tr3422Sender.substr(1)), "");
    EXPECT_EQ(updates(), Lines{});
    EXPECT_EQ(answer(stat + R"("web")"), "");
    EXPECT_EQ(updates().size(), 6U);
}

}  // namespace
