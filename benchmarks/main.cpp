/// Compares the console with minimal programs that do the same I/O: see docs/performance.md.

#include "benchmarks/measurements.h"
#include "host/launcher/options.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <vector>

namespace bench {
namespace {

using Names = std::vector<std::string>;

bool isWanted(const Names& names, const char* name) {
    return names.empty() || std::find(names.begin(), names.end(), name) != names.end();
}

std::string load() {
    std::string average;
    std::ifstream("/proc/loadavg") >> average;
    return average;
}

/// Runs the measurements of these names, all of them where there is none.
void run(const Bench& bench, const Names& names) {
    const std::string loadBefore = load();
    std::vector<Row> rows;
    for (const Measurement& measurement : measurements) {
        if (!isWanted(names, measurement.name)) continue;
        std::fprintf(stderr, "measuring: %s\n", measurement.name);
        std::ranges::move(measurement.run(bench), std::back_inserter(rows));
    }
    std::printf("%d blocks, load before the run: %s\n\n", bench.blocks, loadBefore.c_str());
    if (!rows.empty()) {
        print(rows);
        write(bench.programs / "ratios.tsv", rows);
    }
    if (isWanted(names, "growth")) measureGrowth(bench, bench.programs / "growth.tsv");
}

}  // namespace
}  // namespace bench

/// Arguments: ROOT PORT [--quick] [NAME]..., where a device runs in ROOT and listens on PORT.
int main(int count, char** arguments) {
    if (count < 3) return 2;
    bench::Bench bench{arguments[1], host::parseNumber(arguments[2], 1, host::highestPort).value_or(0),
                       std::filesystem::read_symlink("/proc/self/exe").parent_path()};
    bench::Names names(arguments + 3, arguments + count);
    if (std::erase(names, "--quick") > 0) bench.blocks = 5;
    try {
        bench::run(bench, names);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "benchmarks: %s\n", error.what());
        return 1;
    }
    return 0;
}
