// What a finished run comes to, gathered from the results file for the
// command line: the energy summary (required) and, where the report has
// them, the load tables and the utility costs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "results/results_reader.h"

namespace solvane {

// The life-cycle cost the engine prints at the end of its cost analysis.
struct LifeCycleTotal {
    int years = 0;
    double discountRate = 0;  // percent
    double presentWorth = 0;  // $
};

struct RunSummary {
    EnergySummary energy;
    std::optional<ComponentLoads> annualHeating, annualCooling, peakHeating, peakCooling;
    std::optional<MonthlyCosts> costs;
    std::optional<LifeCycleTotal> lifeCycle;
    // Why a part is missing, one line each.
    std::vector<std::string> notAvailable;
};

// The life-cycle cost of the cost analysis (section VII.): the line
// "    LIFE-CYCLE COST: PRESENT WORTH OVER <n> YEARS AT A DISCOUNT RATE OF
// <r> %" and the total of the line "    TOTAL LIFE-CYCLE COST" at 60/14.
ReportRead<LifeCycleTotal> ReadLifeCycleTotal(std::string_view report);

// Fails only when the energy summary itself cannot be read.
ReportRead<RunSummary> ReadRunSummary(std::string_view report);

}  // namespace solvane
