// Runs the ASHRAE 140 cases once and gives their figures by the names the
// reference table uses.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "engine/simulation.h"
#include "engine/weather_data.h"

namespace solvane::engine::testing {

struct ReferenceRange {
    std::string caseName, quantity;
    double min = 0, max = 0;
};

// The reference table, read from tests/engine/bestest_ranges.csv.
std::vector<ReferenceRange> ReadReferenceRanges(const std::string& path);

// Figures of the four cases: key "600/annual_heating" and so on, in the
// table's units.
std::map<std::string, double> RunBestestCases(const WeatherYear& weather, int stepsPerHour = 4);

}  // namespace solvane::engine::testing
