#include "benchmarks/console_talk.h"
#include "benchmarks/crowd.h"
#include "benchmarks/measurements.h"
#include "benchmarks/process_usage.h"

#include <chrono>
#include <thread>

namespace bench {
namespace {

constexpr std::size_t sessionCount = 100;
constexpr std::chrono::seconds window{1};  // the slowest clock of an idle console

double processorTimeOf(Crowd& crowd) {
    double sum = 0;
    for (std::size_t i = 0; i < crowd.size(); ++i) sum += bench::processorTimeOf(crowd[i].pid());
    return sum;
}

/// The processor time that a crowd has used since the last look at it.
class Meter {
  public:
    explicit Meter(Crowd& crowd) : crowd_(crowd), last_(processorTimeOf(crowd)) {}

    double read() {
        const double now = processorTimeOf(crowd_);
        return now - std::exchange(last_, now);
    }

  private:
    Crowd& crowd_;
    double last_;
};

}  // namespace

std::vector<Row> idleTime(const Bench& bench) {
    Crowd consoles, loops;
    for (std::size_t i = 0; i < sessionCount; ++i) {
        askVolume(consoles.add(bench.device.console()));
        loops.add({bench.programs / "idle_console", {"idle_console"}, {}}).await("ready\r\n");
    }
    Meter console(consoles), loop(loops);
    Comparison result;
    for (int block = 0; block < bench.blocks; ++block) {
        std::this_thread::sleep_for(window);  // both crowds idle through the same window
        result.ours.push_back(console.read());
        result.limit.push_back(loop.read());
        result.ratios.push_back(result.ours.back() / result.limit.back());
    }
    return {ratioRow("(f) processor time of 100 idle sessions, a second", result, 1.2)};
}

}  // namespace bench
