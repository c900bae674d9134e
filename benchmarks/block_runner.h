/// Measures two things side by side.
///
/// A machine's speed drifts within seconds, so that two long series one after the other compare two machines. Here
/// they take turns in blocks so short that the two halves of a block meet the same machine.
#pragma once

#include "benchmarks/statistics.h"

#include <functional>

namespace bench {

/// Takes one sample.
using Measure = std::function<double()>;

struct Comparison {
    Samples ours;
    Samples limit;
    Samples ratios;  ///< per block: the median of ours over the median of the limit
};

struct BlockPlan {
    int blocks;
    int samplesPerBlock;  ///< of each of the two
};

/// The two take turns in going first.
Comparison compare(BlockPlan plan, const Measure& ours, const Measure& limit);

}  // namespace bench
