/// What a series of measurements says.
#pragma once

#include <vector>

namespace bench {

using Samples = std::vector<double>;

/// The value that the given part of the samples (0 to 1) does not exceed; `samples` is not empty.
double quantile(Samples samples, double part);

inline double median(const Samples& samples) { return quantile(samples, 0.5); }
inline double p99(const Samples& samples) { return quantile(samples, 0.99); }
inline double worst(const Samples& samples) { return quantile(samples, 1.0); }

}  // namespace bench
