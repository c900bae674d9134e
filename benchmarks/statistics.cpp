#include "benchmarks/statistics.h"

#include <algorithm>
#include <cmath>

namespace bench {

double quantile(Samples samples, double part) {
    const auto rank = std::ceil(part * static_cast<double>(samples.size()));
    const auto place = samples.begin() + static_cast<std::ptrdiff_t>(std::max(rank, 1.0)) - 1;
    std::nth_element(samples.begin(), place, samples.end());
    return *place;
}

}  // namespace bench
