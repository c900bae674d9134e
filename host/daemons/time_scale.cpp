#include "host/daemons/time_scale.h"

#include <cmath>
#include <cstdlib>

namespace host {
namespace {

double readScale() {
    const char* text = std::getenv(timeScaleVariable);
    const double scale = text != nullptr ? std::strtod(text, nullptr) : 1.0;
    return std::isfinite(scale) && scale > 0 ? scale : 1.0;
}

}  // namespace

std::chrono::milliseconds scaled(std::chrono::milliseconds span) {
    static const double scale = readScale();
    return std::chrono::duration_cast<std::chrono::milliseconds>(span * scale);
}

}  // namespace host
