// The top of a result chart's axis from the values it plots.
#pragma once

#include <span>

namespace solvane {

// The larger of the largest value and minus the smallest, rounded up to the
// next step of its leading digit (345.6 -> 400, 7 -> 7), at least 0.1. A
// chart with negative values runs from minus the scale.
double ChartScale(std::span<const double> values);

}  // namespace solvane
