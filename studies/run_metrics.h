// The figures of one finished run that the studies compare: site and source
// EUI, site energy by end use, peak loads, unmet load hours and annual cost,
// and for the charts the monthly loads and the peak load components.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "results/results_reader.h"

namespace solvane {

struct Metric {
    std::string key;      // stable name for files: "siteEUI", "endUse.COOLING", "monthly.heating.1"
    std::string unit;     // in the report's unit system
    bool detail = false;  // a chart's series point rather than a headline figure
    std::optional<double> value;  // none when the report does not hold it
};

struct RunMetrics {
    ReportUnits units;
    std::vector<Metric> metrics;
    const Metric* Find(std::string_view key) const;
};

// Reads the figures from a results file. Fails only when its energy summary
// cannot be read.
ReportRead<RunMetrics> ReadRunMetrics(std::string_view report);

// The unmet load hours the engine's systems report gives: cooling, heating.
std::optional<std::pair<int, int>> ReadUnmetHours(std::string_view report);

}  // namespace solvane
