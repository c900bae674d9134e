#include "benchmarks/console_talk.h"
#include "benchmarks/crowd.h"
#include "benchmarks/measurements.h"
#include "benchmarks/process_usage.h"
#include "benchmarks/shell.h"

#include <chrono>
#include <thread>

namespace bench {
namespace {

constexpr std::size_t sessionCount = 20;
constexpr std::chrono::seconds settlingTime{2};

Samples memoryOf(Crowd& crowd, double MemoryUse::*kind) {
    Samples samples;
    for (std::size_t i = 0; i < crowd.size(); ++i) samples.push_back(memoryUseOf(crowd[i].pid()).*kind);
    return samples;
}

Comparison compareMemory(Crowd& consoles, Crowd& shells, double MemoryUse::*kind) {
    Comparison result{memoryOf(consoles, kind), memoryOf(shells, kind), {}};
    result.ratios = {median(result.ours) / median(result.limit)};
    return result;
}

}  // namespace

std::vector<Row> sessionMemory(const Bench& bench) {
    Crowd consoles, shells;
    for (std::size_t i = 0; i < sessionCount; ++i) {
        askVolume(consoles.add(bench.device.console()));
        askShell(shells.add(shell()));
    }
    std::this_thread::sleep_for(settlingTime);  // each has answered; its other threads may still be starting
    const Comparison dirty = compareMemory(consoles, shells, &MemoryUse::privateDirty);
    const Comparison proportional = compareMemory(consoles, shells, &MemoryUse::proportional);
    return {ratioRow("(e) private dirty memory, 20 alive, limit bash", dirty, 1.0, Unit::bytes),
            ratioRow("(e) proportional memory, 20 alive, limit bash", proportional, std::nullopt, Unit::bytes)};
}

}  // namespace bench
