#include "video/link_report.h"

#include "command/command.h"
#include "text/fixed_text.h"
#include "text/text.h"
#include "video/link_status.h"

#include <cstdio>

namespace {

template <LinkField field>
void printChannels(const LinkSide& side, const char* title) {
    std::printf("%s - %s\r\n", side.name(), title);
    for (char letter = 'D'; letter >= 'A'; --letter) {
        std::printf("  Channel %c:%d\r\n", letter, side.channel(field, letter));
    }
}

template <LinkField field>
void printNumber(const LinkSide& side, const char* title) {
    std::printf("%s - %s%d\r\n", side.name(), title, side.number(field));
}

template <bool (LinkSide::*isOn)() const>
void printOnOff(const LinkSide& side, const char* title) {
    std::printf("%s - %s%s\r\n", side.name(), title, onOff((side.*isOn)()));
}

void printModel(const LinkSide& side, const char* title) {
    std::printf("%s - %s%s\r\n", side.name(), title, side.model());
}

struct Report {
    const char* selector;
    const char* title;
    void (*print)(const LinkSide& side, const char* title);
};

/// In the order of "all".
constexpr Report reports[] = {
    {"maxerr", "MaxErr :", printChannels<linkLayout.maxError>},
    {"mse", "MSE :", printChannels<linkLayout.mse>},
    {"hpd", "HPD : ", printOnOff<&LinkSide::isHotPlugged>},
    {"5vstat", "5V HDMI : ", printOnOff<&LinkSide::hasFiveVolts>},
    {"devtype", "Device : ", printModel},
    {"tmdsclk", "TMDS Clock : ", printNumber<linkLayout.tmdsClock>},
    {"ber", "Total BER : ", printNumber<linkLayout.bitErrors>},
    {"retr", "Retransmission rate :", printNumber<linkLayout.retransmissions>},
    {"cablelen", "Cable length : ", printNumber<linkLayout.cableLength>},
};

void printReports(const char* selector, const LinkEnds& link) {
    for (const Report& report : reports) {
        if (!equals(selector, "all") && !equals(selector, report.selector)) continue;
        report.print(link.transmitter, report.title);
        report.print(link.receiver, report.title);
    }
}

using HexLine = FixedText<64>;

/// Appends the characters of the fields from `first` to `last`.
void appendFields(HexLine& line, const char* text, const LinkField& first, const LinkField& last) {
    line.append(text + first.at, last.end() - first.at);
}

/// The fields that are printed for each known device, in its order.
void printHex(const LinkEnds& link) {
    if (link.transmitter.isKnown()) {
        HexLine line;
        appendFields(line, link.transmitter.text(), linkLayout.marker, linkLayout.cableLength);
        printLine(line.c_str());
    }
    if (link.receiver.isKnown()) {
        HexLine line;
        appendFields(line, link.receiver.text(), linkLayout.marker, linkLayout.status);
        for (const LinkField* field :
             {&linkLayout.bitErrors, &linkLayout.mse, &linkLayout.retransmissions, &linkLayout.cableLength}) {
            appendFields(line, link.receiver.text(), *field, *field);
        }
        printLine(line.c_str());
    }
}

const char* readLinkText(json_token* token, const char* key) {
    FixedText<128> path;
    path.appendFormat("video.vidIn.hdbtIn.hdbtIn1.linkMonitoring.%s", key);
    return json_token_object_walk_get_string(token, path.c_str(), nullptr);
}

/// The report for whoever requested it; null when the requester is unknown.
const char* requestedSelector(json_token* token) {
    const char* asker = readLinkText(token, "trigerBy");
    if (asker == nullptr) return nullptr;
    if (equals(asker, "RS232")) return "allhex";
    if (equals(asker, "web")) return "update";
    if (equals(asker, "RS232ShowAll")) return readLinkText(token, "requestStatusValue");
    return nullptr;
}

}  // namespace

void linkReport(const char* selector, const char* transmitterText, const char* receiverText) {
    const LinkEnds link{{"TX", transmitterText, &LinkDevice::transmitterCode},
                        {"RX", receiverText, &LinkDevice::receiverCode}};
    if (equals(selector, "allhex")) return printHex(link);
    if (equals(selector, "update")) return updateLinkStatus(link);
    printReports(selector, link);
}

void answerLinkRequest(json_token* token) {
    const char* transmitterText = readLinkText(token, "TX.allHexString");
    const char* receiverText = readLinkText(token, "RX.allHexString");
    const char* answer = readLinkText(token, "respondFrom");
    if (transmitterText == nullptr || receiverText == nullptr || answer == nullptr || !equals(answer, "stat")) return;
    const char* selector = requestedSelector(token);
    if (selector == nullptr || !isLinkText(transmitterText) || !isLinkText(receiverText)) return;
    linkReport(selector, transmitterText, receiverText);
}
