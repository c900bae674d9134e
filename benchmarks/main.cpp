/// Measures the console against the least that the same service could cost, and prints one table.

#include "benchmarks/measurements.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <span>
#include <string>

namespace bench {
namespace {

struct Measurement {
    const char* name;
    std::vector<Row> (*run)(const Bench& bench);
};

constexpr Measurement measurements[] = {
    {"query", queryRoundTrip}, {"set", durableSet},         {"crowd", crowdedSets},    {"fanout", fanOut},
    {"start", sessionStart},   {"connect", sessionConnect}, {"memory", sessionMemory}, {"idle", idleTime},
};

struct Options {
    int blocks = 60;
    std::vector<std::string> names;  ///< what to measure; everything when empty
};

/// "--quick" for a trial with few blocks, anything else names a measurement.
Options parse(int count, char** arguments) {
    Options options;
    for (std::string argument : std::span(arguments + 1, arguments + count)) {
        if (argument == "--quick") {
            options.blocks = 5;
        } else {
            options.names.push_back(std::move(argument));
        }
    }
    return options;
}

bool isWanted(const Options& options, const char* name) {
    return options.names.empty() || std::find(options.names.begin(), options.names.end(), name) != options.names.end();
}

std::vector<Row> measure(const Options& options, const std::filesystem::path& build) {
    const Device device(build, build / "benchmarks" / "device");
    const Bench bench{device, build / "benchmarks", options.blocks};
    std::vector<Row> rows;
    for (const Measurement& measurement : measurements) {
        if (!isWanted(options, measurement.name)) continue;
        std::fprintf(stderr, "measuring: %s\n", measurement.name);
        const std::vector<Row> measured = measurement.run(bench);
        rows.insert(rows.end(), measured.begin(), measured.end());
    }
    return rows;
}

std::string load() {
    std::string average;
    std::ifstream("/proc/loadavg") >> average;
    return average;
}

void run(const Options& options) {
    const std::string loadBefore = load();
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const std::vector<Row> rows = measure(options, folder.parent_path());
    std::printf("%d interleaved blocks; ratio: the median of the blocks' ratios; load before the run: %s\n\n",
                options.blocks, loadBefore.c_str());
    print(rows);
}

}  // namespace
}  // namespace bench

int main(int count, char** arguments) {
    try {
        bench::run(bench::parse(count, arguments));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "benchmarks: %s\n", error.what());
        return 1;
    }
    return 0;
}
