/// What is measured. Each measurement starts what it needs and returns its rows of the table.
#pragma once

#include "benchmarks/device.h"
#include "benchmarks/table.h"

#include <filesystem>
#include <vector>

namespace bench {

struct Bench {
    const Device& device;
    std::filesystem::path programs;  ///< the folder of the limits' programs
    int blocks;
};

/// A query line and its reply on a terminal.
std::vector<Row> queryRoundTrip(const Bench& bench);

/// A setting that is durable when its reply comes.
std::vector<Row> durableSet(const Bench& bench);

/// Many consoles that set at the same time, on a disk that is slow to sync.
std::vector<Row> crowdedSets(const Bench& bench);

/// A setting that every console shows.
std::vector<Row> fanOut(const Bench& bench);

/// A new session until it has answered its first line.
std::vector<Row> sessionStart(const Bench& bench);

/// The same through the launcher.
std::vector<Row> sessionConnect(const Bench& bench);

/// What one more session costs in memory.
std::vector<Row> sessionMemory(const Bench& bench);

/// What sessions cost in which nobody types.
std::vector<Row> idleTime(const Bench& bench);

}  // namespace bench
