/// The table that a run prints.
#pragma once

#include "benchmarks/block_runner.h"

#include <optional>
#include <string>
#include <vector>

namespace bench {

enum class Unit { seconds, bytes, count };

/// One line of the table, its numbers as they are printed; an empty text where there is none.
struct Row {
    std::string what;
    std::string median;
    std::string p99;
    std::string limit;
    std::string ratio;
    std::string goal;
    std::optional<bool> reached;
};

/// A row that is judged by the median of the blocks' ratios, or by nothing where there is no goal.
Row ratioRow(std::string what, const Comparison& comparison, std::optional<double> goal, Unit unit = Unit::seconds);

/// A row in which not even the worst sample may exceed `goal`.
Row worstRow(std::string what, const Samples& samples, double goal, Unit unit = Unit::seconds);

/// A row whose median must be `goal`.
Row exactRow(std::string what, const Samples& samples, double goal, Unit unit = Unit::count);

void print(const std::vector<Row>& rows);

}  // namespace bench
