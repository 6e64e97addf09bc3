// What a finished run comes to, gathered from the results file for the
// command line: the energy summary (required) and, where the report has
// them, the load tables and the utility costs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "results/results_reader.h"

namespace solvane {

struct RunSummary {
    EnergySummary energy;
    std::optional<ComponentLoads> annualHeating, annualCooling, peakHeating, peakCooling;
    std::optional<MonthlyCosts> costs;
    // Why a part is missing, one line each.
    std::vector<std::string> notAvailable;
};

// Fails only when the energy summary itself cannot be read.
ReportRead<RunSummary> ReadRunSummary(std::string_view report);

}  // namespace solvane
