/// What is measured. Each measurement starts what it needs.
#pragma once

#include "benchmarks/device.h"
#include "benchmarks/report.h"

#include <filesystem>
#include <vector>

namespace bench {

struct Bench {
    const Device& device;
    std::filesystem::path programs;  ///< the folder of the limits' programs
    int blocks;
};

struct Measurement {
    const char* name;
    std::vector<Row> (*run)(const Bench& bench);
};

/// In the order of the table.
extern const std::vector<Measurement> measurements;

/// What one more session costs those that are there and itself: prints a table, and writes it into `path` for gnuplot.
void measureGrowth(const Bench& bench, const std::filesystem::path& path);

}  // namespace bench
