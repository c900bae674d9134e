/// What is measured. Each measurement starts what it needs.
#pragma once

#include "benchmarks/report.h"
#include "benchmarks/session.h"

#include <filesystem>
#include <vector>

namespace bench {

/// The device that is measured, and how.
struct Bench {
    std::filesystem::path root;      ///< of the device
    int port;                        ///< its telnet port on 127.0.0.1
    std::filesystem::path programs;  ///< the folder of the limits' programs
    int blocks = 60;

    /// The console program as the launcher starts it.
    host::ProgramStart console() const;
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
