#include "benchmarks/console_talk.h"
#include "benchmarks/measurements.h"
#include "benchmarks/stopwatch.h"

namespace bench {

std::vector<Row> queryRoundTrip(const Bench& bench) {
    PtySession console(bench.device.console());
    PtySession echo({bench.programs / "echo_console", {"echo_console"}, {}});
    const Comparison result = compare(
        {bench.blocks, 50}, [&] { return secondsOf([&] { askVolume(console); }); },
        [&] { return secondsOf([&] { askEcho(echo); }); });
    return {ratioRow("(a) query", result, 1.35)};
}

}  // namespace bench
