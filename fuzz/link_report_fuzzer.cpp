/// Decodes any status texts of the link's two ends and prints or stores every report on them.

#include "fuzz/console_output.h"
#include "fuzz/device.h"
#include "fuzz/require.h"
#include "video/link_report.h"

#include <cstdint>

namespace {

constexpr std::size_t statusTextSize = 73;

constexpr const char* selectors[] = {"all",  "allhex",  "maxerr", "mse",    "hpd",      "5vstat",       "devtype",
                                     "retr", "tmdsclk", "ber",    "update", "cablelen", "none of these"};

/// Of the right size and with its marker, so that its fields are looked at.
std::string wellFormed(const char* marker, std::string text) {
    text = marker + text;
    text.resize(statusTextSize, '0');
    return text;
}

void checkReports(const std::string& transmitter, const std::string& receiver, fuzz::ConsoleOutputs& console) {
    for (const char* selector : selectors) {
        linkReport(selector, transmitter.c_str(), receiver.c_str());
        const std::string text = console.replies.take();
        fuzz::require(text.empty() || text.ends_with("\r\n"), "a report is made of lines", text);
        fuzz::require(console.complaints.take().empty(), "the store takes every document", selector);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::ConsoleOutputs console;
    const std::string first(data, data + size / 2);
    const std::string second(data + size / 2, data + size);
    checkReports(first, second, console);
    checkReports(wellFormed("TX:", first.c_str()), wellFormed("RX:", second.c_str()), console);
    fake_platform::reset();
    return 0;
}
