/// Compares the console with minimal programs that do the same I/O: see docs/performance.md.

#include "benchmarks/measurements.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <span>
#include <string>

namespace bench {
namespace {

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

std::string load() {
    std::string average;
    std::ifstream("/proc/loadavg") >> average;
    return average;
}

void run(const Options& options) {
    const std::string loadBefore = load();
    const auto programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const Device device(programs.parent_path(), programs / "device");
    const Bench bench{device, programs, options.blocks};
    std::vector<Row> rows;
    for (const Measurement& measurement : measurements) {
        if (!isWanted(options, measurement.name)) continue;
        std::fprintf(stderr, "measuring: %s\n", measurement.name);
        std::ranges::move(measurement.run(bench), std::back_inserter(rows));
    }
    std::printf("%d blocks, load before the run: %s\n\n", options.blocks, loadBefore.c_str());
    if (!rows.empty()) {
        print(rows);
        write(programs / "ratios.tsv", rows);
    }
    if (isWanted(options, "growth")) measureGrowth(bench, programs / "growth.tsv");
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
