/// Spans of time at the pace of the run.
#pragma once

#include <chrono>

namespace host {

/// Names the factor by which a run stretches the daemons' waiting times, in the environment: 1 where it is not set.
inline constexpr char timeScaleVariable[] = "DEVICE_TIME_SCALE";

/// `span` at the pace of this run.
std::chrono::milliseconds scaled(std::chrono::milliseconds span);

}  // namespace host
