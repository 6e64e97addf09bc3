// One run without a window: what "Execute Run" and "Review Results" do, with
// every prompt answered by its first button. Shared by the command line, the
// weather ensemble and the climate sweep.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/session.h"
#include "run/run_sim.h"
#include "ui/prompt.h"

namespace solvane {

struct RunRequest {
    bool passive = false;                // comfort analysis without HVAC
    bool repeatWeather = false;          // the fixed simulated weather sequence
    double seed = -1;                    // the weather seed in [0, 1); below 0 a new random one
    std::string periodBegin, periodEnd;  // blank: the screen's own dates
    int defaultYear = 2020;              // the weather year when the project names none
    double timeLimitSeconds = 3600;
    int engineThreads = 0;  // the engine's threads (0: its default, every core)
};

struct RunOutcome {
    // 0 done, 1 the engine did not complete or its results were unreadable,
    // 2 the run did not start.
    int status = 2;
    std::string error;   // one line for the user when status is not 0
    std::string report;  // the results file, once gathered
    double seconds = 0;  // wall-clock time of the engine run
    RunState run;
};

// Runs the session's project in its program folder's temp. `prepare`, when
// given, may change the run screen's fields after it opened (recorded weather).
RunOutcome RunHeadless(Session& session, Prompt& prompt, const RunRequest& request,
                       const std::function<bool(RunSimController&, std::string&)>& prepare = {});

}  // namespace solvane
