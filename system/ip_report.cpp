#include "system/ip_report.h"

#include "settings/leaf.h"
#include "system/network_leaves.h"
#include "text/text.h"

#include <optional>

namespace {

using ReadAddress = OwnedText (*)(const char* leaf);

constexpr char noAddress[] = "0.0.0.0";

OwnedText readNoAddress(const char* /*leaf*/) { return OwnedText(strdup(noAddress)); }

/// Whether any of the device's network ports has a link; nothing when one of them does not say.
std::optional<bool> readLinked() {
    const std::optional<int> ethernet = readStatusBoolean(R"({"network":{"eth0":{"linkStatus":%s}}})");
    const std::optional<int> hdbaset = readStatusBoolean(R"({"network":{"valens":{"linkStatus":%s}}})");
    if (!ethernet || !hdbaset) return std::nullopt;
    return *ethernet != 0 || *hdbaset != 0;
}

void printAddress(const char* label, const OwnedText& address) {
    if (address) printSetting(label, address.get());
}

void printAddresses(ReadAddress read) {
    printAddress("IP Addr", read(ipAddressLeaf));
    printAddress("Netmask", read(netmaskLeaf));
    printAddress("Gateway", read(gatewayLeaf));
}

void printPort() {
    const std::optional<int> port = readInteger(telnetPortLeaf);
    if (port) printSetting("IP Port", *port);
}

void reportDhcp(bool linked) {
    printAddresses(linked ? readStatusText : readNoAddress);
    printPort();
}

void reportStatic(bool linked) {
    // No port line here, unlike everywhere else; kept on purpose.
    if (!linked) return printAddresses(readText);
    const OwnedText gateway = readStatusText(gatewayLeaf);
    if (!gateway) return;
    printAddresses(equals(gateway.get(), noAddress) ? readText : readStatusText);
    printPort();
}

}  // namespace

void reportIpConfiguration(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    const OwnedText bootProto = readText(bootProtoLeaf);
    const std::optional<bool> linked = readLinked();
    if (!bootProto || !linked) return;
    if (equals(bootProto.get(), "DHCP")) reportDhcp(*linked);
    if (equals(bootProto.get(), "STATIC")) reportStatic(*linked);
}
