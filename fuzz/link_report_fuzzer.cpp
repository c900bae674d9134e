/// Decodes any status texts of the link's two ends and prints or stores every report on them.

#include "fuzz/console_output.h"
#include "fuzz/device.h"
#include "fuzz/require.h"
#include "video/link_report.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::size_t statusTextSize = 73;

struct Selector {
    const char* name;
    std::ptrdiff_t lines;
};

constexpr Selector selectors[] = {
    {"all", 34}, {"maxerr", 10}, {"mse", 10}, {"hpd", 2},    {"5vstat", 2},   {"devtype", 2},
    {"retr", 2}, {"tmdsclk", 2}, {"ber", 2},  {"update", 0}, {"cablelen", 2}, {"none of these", 0},
};

/// Of the right size and with its marker, so that its fields are looked at.
std::string wellFormed(const char* marker, std::string text) {
    text = marker + text;
    text.resize(statusTextSize, '0');
    return text;
}

/// A number of the text, the way its document says, or 0 when not all of it is hexadecimal.
int numberAt(const std::string& text, std::size_t at, std::size_t width) {
    const std::string digits = text.substr(at, width);
    if (digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) return 0;
    return static_cast<int>(std::strtoul(digits.c_str(), nullptr, 16));
}

void checkReports(const std::string& transmitter, const std::string& receiver, fuzz::ConsoleOutputs& console) {
    for (const Selector& selector : selectors) {
        linkReport(selector.name, transmitter.c_str(), receiver.c_str());
        const std::string text = console.replies.take();
        fuzz::require(std::count(text.begin(), text.end(), '\n') == selector.lines, "a report has its lines", text);
        fuzz::require(console.complaints.take().empty(), "the store takes every document", selector.name);
    }
    linkReport("allhex", transmitter.c_str(), receiver.c_str());
    const std::string text = console.replies.take();
    fuzz::require(text.size() % (57 + 2) == 0, "a line of status text has 57 characters", text);
}

void checkStoredNumber(const std::string& text, const char* side, const char* key, std::size_t at, std::size_t width) {
    const std::string path = std::string(R"({"video":{"vidIn":{"hdbtIn":{"hdbtIn1":{"linkMonitoring":{")") + side +
                             "\":{\"" + key + "\":0}}}}}}}";
    fuzz::require(fake_platform::status(path) == std::to_string(numberAt(text, at, width)),
                  "the status holds what the text says", text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::ConsoleOutputs console;
    const std::string first(data, data + size / 2);
    const std::string second(data + size / 2, data + size);
    checkReports(first, second, console);
    const std::string transmitter = wellFormed("TX:", first.c_str());
    const std::string receiver = wellFormed("RX:", second.c_str());
    checkReports(transmitter, receiver, console);
    checkStoredNumber(transmitter, "TX", "TMDSClock", 7, 8);
    checkStoredNumber(transmitter, "TX", "cableLength", 55, 2);
    checkStoredNumber(receiver, "RX", "totalBER", 57, 8);
    checkStoredNumber(receiver, "RX", "retr", 65, 8);
    fake_platform::reset();
    return 0;
}
