#include "benchmarks/console_talk.h"
#include "benchmarks/measurements.h"
#include "benchmarks/stopwatch.h"
#include "benchmarks/sync_log.h"

#include <memory>
#include <mutex>
#include <thread>

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int operatorCount = 20;
constexpr std::chrono::milliseconds interval{60};
constexpr std::chrono::milliseconds addedToSync{2};
constexpr double longestWait = 0.060;

/// One of `operatorCount` operators, who type in turn: sets the volume once an interval, each time to another value
/// than the one before them.
class Operator {
  public:
    Operator(int number, const Program& program) : number_(number), console_(program) { askVolume(console_); }

    void work(Clock::time_point start, int rounds) {
        for (int round = 0; round < rounds; ++round) {
            std::this_thread::sleep_until(start + round * interval + number_ * interval / operatorCount);
            const int volume = -1 - (round * operatorCount + number_) % 80;
            waits_.push_back(secondsOf([&] { setVolume(console_, volume); }));
        }
    }

    const Samples& waits() const { return waits_; }

  private:
    int number_;
    PtySession console_;
    Samples waits_;
};

using Operators = std::vector<std::unique_ptr<Operator>>;

Operators hireOperators(const Program& program) {
    Operators operators;
    for (int i = 0; i < operatorCount; ++i) operators.push_back(std::make_unique<Operator>(i, program));
    return operators;
}

Samples workSideBySide(const Operators& operators, int rounds) {
    std::vector<std::jthread> threads;
    const auto start = Clock::now();
    for (const auto& each : operators) threads.emplace_back([&each, start, rounds] { each->work(start, rounds); });
    threads.clear();
    Samples waits;
    for (const auto& each : operators) waits.insert(waits.end(), each->waits().begin(), each->waits().end());
    return waits;
}

}  // namespace

std::vector<Row> crowdedSets(const Bench& bench) {
    const SyncLog slowDisk(bench, addedToSync);
    PtySession console(bench.device.console());
    setBroadcast(console, false);
    const Samples waits = workSideBySide(hireOperators(slowDisk.watch(bench.device.console())), 2 * bench.blocks);
    setBroadcast(console, true);
    return {worstRow("(b2) 20 consoles set every 60 ms, sync + 2 ms", waits, longestWait)};
}

}  // namespace bench
