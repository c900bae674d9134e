#include "benchmarks/console_talk.h"
#include "benchmarks/measurements.h"
#include "benchmarks/shell.h"
#include "benchmarks/stopwatch.h"
#include "benchmarks/telnet_client.h"

#include <optional>

namespace bench {
namespace {

double startConsole(const Bench& bench) {
    std::optional<PtySession> session;  // its end is not part of its start
    return secondsOf([&] { askVolume(session.emplace(bench.device.console())); });
}

double startShell() {
    std::optional<PtySession> session;
    return secondsOf([&] { askShell(session.emplace(shell())); });
}

double connect(const Bench& bench) {
    std::optional<TelnetClient> client;
    return secondsOf([&] { client.emplace(bench.device.port()).ask("VOUT sta\r\n", "VOUT -"); });
}

}  // namespace

std::vector<Row> sessionStart(const Bench& bench) {
    const Comparison result = compare(
        {bench.blocks, 3}, [&] { return startConsole(bench); }, startShell);
    return {ratioRow("(d) start until the first reply, limit bash", result, 1.5)};
}

std::vector<Row> sessionConnect(const Bench& bench) {
    const Comparison result = compare(
        {bench.blocks, 3}, [&] { return connect(bench); }, startShell);
    return {ratioRow("(d) connect until the first reply, limit bash", result, std::nullopt)};
}

}  // namespace bench
