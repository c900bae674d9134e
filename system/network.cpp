#include "system/network.h"

#include "command/service_call.h"
#include "settings/change_lock.h"
#include "settings/write_path.h"
#include "system/network_leaves.h"
#include "text/text.h"
#include "text/words.h"

#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <strings.h>

namespace {

using ReadAddress = OwnedText (*)(const char* leaf);

constexpr char noAddress[] = "0.0.0.0";

OwnedText readNoAddress(const char* /*leaf*/) { return OwnedText(strdup(noAddress)); }

/// Whether any of the device's network ports has a link; nothing when one of them cannot be read.
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
    // No port line here, unlike everywhere else (oddity 22).
    if (!linked) return printAddresses(readText);
    const OwnedText gateway = readStatusText(gatewayLeaf);
    if (!gateway) return;
    printAddresses(equals(gateway.get(), noAddress) ? readText : readStatusText);
    printPort();
}

using Addresses = Words<3>;

/// Room for one address with its NUL: leading zeros and hexadecimal numbers included.
constexpr std::size_t addressRoom = 32;

void reportDhcpSwitch(const Command& command) {
    const OwnedText stored = readText(command.leaf);
    if (stored) printDhcp({command.rowName, command.family, {.text = stored.get()}});
}

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

void restartListener(int port) {
    FixedText<16> text;
    text.appendFormat("%d", port);
    callService("networkd", "TelnetRestart", text.c_str());
}

void reportTelnetPort(const Command& command) {
    const std::optional<int> port = readInteger(command.leaf);
    if (port) printSetting(command.rowName, *port);
}

constexpr char never[] = "never";

void reportIdleTimeout(const Command& command) {
    const std::optional<int> seconds = readInteger(command.leaf);
    if (!seconds) return reject(command);
    printIdleTimeout({command.rowName, command.family, {.number = *seconds}});
}

void endAllConsoles() {
    // The program names of all console ports contain "cmdd". This console is ended, too.
    // NOLINTNEXTLINE(cert-env33-c): the line is fixed
    [[maybe_unused]] const int status = std::system("killall *cmdd");
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

void setDhcp(const Command& command) {
    if (equals(command.argument, "sta")) return reportDhcpSwitch(command);
    for (const Word& word : command.family.words) {
        if (!equals(command.argument, word.typed)) continue;
        if (writeText(command, word.stored)) printSetting(command.rowName, word.typed);
        return;
    }
    reject(command);
}

void printDhcp(const Change& change) {
    for (const Word& word : change.family.words) {
        if (strcasecmp(change.value.text, word.stored) == 0) printSetting(change.rowName, word.typed);
    }
}

void setStaticAddress(const Command& command) {
    const Addresses words(command.argument, " ");
    if (!areAddresses(words)) return reject(command);
    const Document document = fillAddresses(words);
    if (areStored(words)) {
        // The addresses in effect are announced once more, so that they are applied again, broadcast or not.
        publishChange(document);
    } else if (!updateSettings(document)) {
        logWriteFailure();
    }
    // An echo of what was asked, not a confirmation: it comes after a failed write too.
    if (!command.broadcast) printLine(command.line);
}

void printStaticAddress(const Change& change) { std::printf("%s %s", change.rowName, change.value.text); }

void printStaticNetmask(const Change& change) { std::printf(" %s", change.value.text); }

void printStaticGateway(const Change& change) { std::printf(" %s\r\n", change.value.text); }

void setTelnetPort(const Command& command) {
    if (equals(command.argument, "sta")) return reportTelnetPort(command);
    const std::optional<int> port = parseDecimal(command.argument);
    if (!port || !command.family.range.holds(*port)) return reject(command);
    ChangeLock lock;
    if (!lock) return reject(command);
    const bool unchanged = readInteger(command.leaf).value_or(0) == *port;
    const Document document = fillInteger(command.leaf, *port);
    if (!updateSettings(document)) return logWriteFailure();
    // Between the write and its announcement, so that whoever reads the reply can connect to the new port.
    restartListener(*port);
    if (unchanged && command.broadcast) publishChange(document);
    lock.release();
    if (!command.broadcast) printSetting(command.rowName, *port);
}

void printTelnetPort(const Change& change) {
    restartListener(change.value.number);
    printInteger(change);
}

void setIdleTimeout(const Command& command) {
    if (strcasecmp(command.argument, "sta") == 0) return reportIdleTimeout(command);
    const bool isNever = equals(command.argument, never);
    const std::optional<int> seconds = isNever ? 0 : parseDecimal(command.argument);
    if (!seconds || !command.family.range.holds(*seconds)) return reject(command);
    if (!writeInteger(command, *seconds)) return;
    if (isNever) return printSetting(command.rowName, never);
    printSetting(command.rowName, *seconds);
}

void printIdleTimeout(const Change& change) {
    if (change.value.number == 0) return printSetting(change.rowName, never);
    printInteger(change);
}

void setLoginMode(const Command& command) {
    if (changeSwitch(command)) endAllConsoles();
}
