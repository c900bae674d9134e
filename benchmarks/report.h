/// What a run has measured, as a table and as a file.
#pragma once

#include <chrono>
#include <cmath>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace bench {

using Samples = std::vector<double>;

/// The value that the given part of the samples (0 to 1) does not exceed; `samples` is not empty.
double quantile(Samples samples, double part);

inline double median(const Samples& samples) { return quantile(samples, 0.5); }

/// The seconds that `action` takes.
template <typename Action>
double secondsOf(Action&& action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Comparison {
    Samples ours;
    Samples limit;
    Samples ratios;  ///< per block: the median of ours over the median of the limit
};

/// How many blocks, and how many samples of each of the two in a block.
struct Plan {
    int blocks;
    int samples;
};

/// Measures two things side by side, of which each call takes one sample. A machine's speed drifts within seconds, so
/// that two long series one after the other compare two machines: here they take turns, also in going first, in blocks
/// so short that the two halves of a block meet the same machine.
Comparison compare(Plan plan, const std::function<double()>& ours, const std::function<double()>& limit);

enum class Unit { seconds, bytes };

/// One line of the table.
struct Row {
    std::string what;
    Comparison measured;
    double goal = NAN;  ///< that the ratio is not to exceed, if any
    Unit unit = Unit::seconds;
};

void print(const std::vector<Row>& rows);

/// The same for gnuplot: the columns what, ours, limit, lower quartile, median and upper quartile of the ratio, goal.
void write(const std::filesystem::path& path, const std::vector<Row>& rows);

}  // namespace bench
