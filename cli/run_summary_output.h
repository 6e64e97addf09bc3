// The command line's run summary, as text for people and as JSON for
// scripts (the schema is in docs/cli-run-json.md).
#pragma once

#include <ostream>
#include <string>

#include "core/project_model.h"
#include "results/run_summary.h"
#include "run/run_sim.h"

namespace solvane::cli {

struct SummaryContext {
    const ProjectModel& model;
    const RunState& run;
    std::string projectFile;
    double seconds = 0;   // the run's wall-clock time
    std::string weather;  // the weather the engine used, as its report names it
};

// The first line of the report's weather summary: "RECORDED <station>" or
// "SIMULATED FROM THE CLIMATE RECORD, SEED <seed>"; empty when there is none.
std::string WeatherUsed(const std::string& report);

void PrintSummaryText(const RunSummary& s, const SummaryContext& c, std::ostream& out);
void PrintSummaryJson(const RunSummary& s, const SummaryContext& c, std::ostream& out);

// A JSON string literal for `text`.
std::string JsonString(const std::string& text);

}  // namespace solvane::cli
