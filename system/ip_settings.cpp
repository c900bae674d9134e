#include "system/ip_settings.h"

#include "settings/write_path.h"
#include "system/network_leaves.h"
#include "system/words.h"
#include "text/text.h"

#include <arpa/inet.h>
#include <cstdio>
#include <strings.h>

namespace {

using Addresses = Words<3>;

/// Room for one address with its NUL: leading zeros and hexadecimal numbers included.
constexpr std::size_t addressRoom = 32;

bool isStored(const char* leaf, const char* text) {
    const OwnedText stored = readText(leaf);
    return stored && equals(stored.get(), text);
}

bool isAddress(const char* text) {
    in_addr address{};
    return std::strlen(text) < addressRoom && inet_aton(text, &address) != 0;
}

bool areAddresses(const Addresses& words) {
    return words.count() == 3 && isAddress(words[0]) && isAddress(words[1]) && isAddress(words[2]);
}

bool areStored(const Addresses& words) {
    return isStored(ipAddressLeaf, words[0]) && isStored(netmaskLeaf, words[1]) && isStored(gatewayLeaf, words[2]);
}

Document fillAddresses(const Addresses& words) {
    Document document;
    document.append(R"({"network":{"eth0":{"ipSettings":{"ipaddr":")");
    document.appendEscaped(words[0]);
    document.append(R"(","netmask":")");
    document.appendEscaped(words[1]);
    document.append(R"(","gateway":")");
    document.appendEscaped(words[2]);
    document.append(R"("}}}})");
    return document;
}

}  // namespace

void setDhcp(const Command& command) {
    if (equals(command.argument, "sta")) return printDhcp(command.rowName, {.text = readText(command.leaf).get()});
    const bool on = equals(command.argument, "on");
    if (!on && !equals(command.argument, "off")) return reject(command);
    if (writeText(command, on ? "DHCP" : "STATIC")) printSetting(command.rowName, onOff(on));
}

void printDhcp(const char* rowName, const ChangedValue& value) {
    if (value.text == nullptr) return;
    if (strcasecmp(value.text, "STATIC") == 0) printSetting(rowName, onOff(false));
    if (strcasecmp(value.text, "DHCP") == 0) printSetting(rowName, onOff(true));
}

void setStaticAddress(const Command& command) {
    const Addresses words(command.argument, " ");
    if (!areAddresses(words)) return reject(command);
    const Document document = fillAddresses(words);
    if (areStored(words)) {
        // Whoever repeats the addresses in effect wants them applied again, broadcast or not.
        publishChange(document);
    } else if (!updateSettings(document)) {
        logWriteFailure();
    }
    // An echo of what was asked, not a confirmation: it comes after a failed write too.
    if (!command.broadcast) printLine(command.line);
}

void printStaticAddress(const char* rowName, const ChangedValue& value) {
    if (value.text != nullptr) std::printf("%s %s", rowName, value.text);
}

void printStaticNetmask(const char* /*rowName*/, const ChangedValue& value) {
    if (value.text != nullptr) std::printf(" %s", value.text);
}

void printStaticGateway(const char* /*rowName*/, const ChangedValue& value) {
    if (value.text != nullptr) std::printf(" %s\r\n", value.text);
}
