#include "system/report.h"

#include "settings/leaf.h"
#include "system/factory.h"
#include "system/network_leaves.h"
#include "text/text.h"

#include <cmath>
#include <cstdio>
#include <sys/time.h>

namespace {

/// Where a text of a report comes from. The reader returns null where there is none.
struct Source {
    OwnedText (*read)(const char* key);
    const char* key;
};

OwnedText copy(const char* text) { return OwnedText(strdup(text)); }

OwnedText readNumber(const char* leaf) {
    const std::optional<int> number = readInteger(leaf);
    if (!number) return nullptr;
    FixedText<16> text;
    text.appendFormat("%d", *number);
    return copy(text.c_str());
}

/// None where the clock fails, as one of 32 bits does after the year 2038.
std::optional<double> timeOfDay() {
    timeval now;
    if (gettimeofday(&now, nullptr) != 0) return std::nullopt;
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_usec) / 1e6;
}

OwnedText readUptime(const char* leaf) {
    const std::optional<double> bootTime = readStatusDouble(leaf);
    const std::optional<double> now = timeOfDay();
    if (!bootTime || !now) return nullptr;
    return copy(formatUptime(*now - *bootTime).c_str());
}

struct Item {
    const char* label;
    Source source;
    bool isForPrograms = true;
};

constexpr Item items[] = {
    {"Model", {readText, modelLeaf}},
    {"MAC Addr", {readFactoryText, "MacAddr"}},
    {"Address Type", {readText, bootProtoLeaf}},
    {"IP Addr", {readStatusText, ipAddressLeaf}},
    {"Netmask", {readStatusText, netmaskLeaf}},
    {"Gateway", {readStatusText, gatewayLeaf}},
    {"HTTP Port", {copy, "80"}},  // not a setting of this device
    // The brace too many (oddity 32): the store ignores what follows the document.
    {"Telnet Port", {readNumber, R"({"network":{"telnet":{"telnetPort":%d}}}})"}},
    {"SSH Port", {readNumber, R"({"network":{"ssh":{"sshPort":%d}}})"}, false},
    {"Firmware", {readFactoryText, "FirmwareVer"}},
    {"On/Up Time <dd HH:mm:ss>", {readUptime, R"({"time":{"status":{"bootUpTime":%f}}})"}},
    {"Hostname", {readText, hostNameLeaf}, false},
};

struct Version {
    const char* suffix;
    Source source;
};

constexpr Version versions[] = {
    {"", {readFactoryText, "FirmwareVer"}},
    {"MCU", {readFactoryText, "FirmwareVer"}},
    {"TRRX", {readText, R"({"system":{"firmwareVersionTR3421Rx":"%s"}})"}},
    {"977", {readFactoryText, "AppImgVer"}},
    {"1830", {readStatusText, R"({"device":{"deviceVersion":{"others":{"mcu4":{"version":""}}}}})"}},
};

/// Prints "label: value" and its end; an item without a value prints nothing.
void printItem(const Item& item, const char* end) {
    const OwnedText value = item.source.read(item.source.key);
    if (value) std::printf("%s: %s%s", item.label, value.get(), end);
}

void reportForPeople() {
    for (const Item& item : items) printItem(item, "\r\n");
}

void reportForPrograms() {
    for (const Item& item : items) {
        if (!item.isForPrograms) continue;
        printItem(item, "");
        // Also after an item without a value: a program finds each item by its position.
        std::printf("%%;");
    }
    std::printf("\r\n");
}

void printSource(const Source& source) {
    const OwnedText text = source.read(source.key);
    if (text) printLine(text.get());
}

}  // namespace

void reportSystem(const Command& command) {
    if (equals(command.argument, "sta")) return reportForPeople();
    if (equals(command.argument, "dev")) return reportForPrograms();
    reject(command);
}

void reportVersion(const Command& command) {
    const char* suffix = command.line + std::strlen(command.rowName);
    for (const Version& version : versions) {
        if (equals(suffix, version.suffix)) return printSource(version.source);
    }
    reject(command);
}

void reportModel(const Command& command) {
    if (!isEmpty(command.argument)) return reject(command);
    printSource({readStatusText, R"({"device":{"modelName":"%s"}})"});
}

FixedText<64> formatUptime(double seconds) {
    constexpr double longest = 1e15;
    // The comparison is false for what is not a number, too.
    const auto t = static_cast<long long>(std::fabs(seconds) < longest ? seconds : 0);
    FixedText<64> text;
    text.appendFormat("%02lld %02lld:%02lld:%02lld", t / 86400, t % 86400 / 3600, t % 3600 / 60, t % 60);
    return text;
}
