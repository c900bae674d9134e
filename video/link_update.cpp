#include "platform/user_status.h"
#include "settings/write_path.h"
#include "video/link_status.h"

namespace {

Document openDocument(const LinkSide& side) {
    Document document;
    document.appendFormat(R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"linkMonitoring":{"%s":{)", side.name());
    return document;
}

void closeAndWrite(Document& document) {
    document.append("}}}}}}}");
    if (user_status_update(document.c_str()) != 0) perrorWriteFailure();
}

void writeChannels(const LinkSide& side, const char* key, const LinkField& field) {
    Document document = openDocument(side);
    document.appendFormat(R"("%s":{"channelA":%d,"channelB":%d,"channelC":%d,"channelD":%d})", key,
                          side.channel(field, 'A'), side.channel(field, 'B'), side.channel(field, 'C'),
                          side.channel(field, 'D'));
    closeAndWrite(document);
}

void writeRetransmissions(const LinkSide& side) {
    Document document = openDocument(side);
    document.appendFormat(R"("retr":%d)", side.number(linkLayout.retransmissions));
    closeAndWrite(document);
}

const char* trueFalse(bool value) { return value ? "true" : "false"; }

/// `withErrors` adds the counters that only the receiver's document has.
void writeState(const LinkSide& side, bool withErrors) {
    Document document = openDocument(side);
    document.appendFormat(R"("cableLength":%d,"TMDSClock":%d,)", side.number(linkLayout.cableLength),
                          side.number(linkLayout.tmdsClock));
    if (withErrors) {
        document.appendFormat(R"("totalBER":%d,"retr":%d,)", side.number(linkLayout.bitErrors),
                              side.number(linkLayout.retransmissions));
    }
    document.appendFormat(R"("HPDstatus":%s,"5Vstatus":%s,"chipType":"%s")", trueFalse(side.isHotPlugged()),
                          trueFalse(side.hasFiveVolts()), side.model());
    closeAndWrite(document);
}

}  // namespace

void updateLinkStatus(const LinkEnds& link) {
    writeChannels(link.transmitter, "maxErr", linkLayout.maxError);
    if (!link.transmitter.isKnown()) {
        writeChannels(link.receiver, "maxErr", linkLayout.maxError);
    } else if (link.receiver.isKnown()) {
        writeRetransmissions(link.receiver);
    }
    if (link.receiver.isKnown()) writeChannels(link.transmitter, "MSE", linkLayout.mse);
    writeChannels(link.receiver, "MSE", linkLayout.mse);
    writeState(link.transmitter, false);
    writeState(link.receiver, true);
}
