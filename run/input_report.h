// The first pages of the results file: the echo of the run's inputs that the
// engine's report is appended to. Its weather block carries the anchor and
// the units line that the results reader looks for.
#pragma once

#include <string>

#include "core/project_model.h"
#include "run/engine_contract.h"

namespace solvane {

struct ReportStamp {
    std::string date;  // "11-23-2026"
    std::string time;  // "20:31:05"
};

// The banner page, the run summary and the analysis page with the location
// and the monthly weather block, in the project's units.
std::string InputReportText(const ProjectModel& model, const RunSettings& run,
                            const ReportStamp& stamp);

}  // namespace solvane
