#include "benchmarks/block_runner.h"

namespace bench {
namespace {

/// One half of a block: appends its samples to `all` and returns their median.
double runHalf(int count, const Measure& measure, Samples& all) {
    Samples samples;
    for (int i = 0; i < count; ++i) samples.push_back(measure());
    all.insert(all.end(), samples.begin(), samples.end());
    return median(samples);
}

}  // namespace

Comparison compare(BlockPlan plan, const Measure& ours, const Measure& limit) {
    Comparison result;
    for (int block = 0; block < plan.blocks; ++block) {
        const bool oursFirst = block % 2 == 0;
        double oursMedian = 0;
        if (oursFirst) oursMedian = runHalf(plan.samplesPerBlock, ours, result.ours);
        const double limitMedian = runHalf(plan.samplesPerBlock, limit, result.limit);
        if (!oursFirst) oursMedian = runHalf(plan.samplesPerBlock, ours, result.ours);
        result.ratios.push_back(oursMedian / limitMedian);
    }
    return result;
}

}  // namespace bench
