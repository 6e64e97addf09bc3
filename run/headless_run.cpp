#include "run/headless_run.h"

#include <chrono>
#include <ctime>
#include <random>

#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane {

RunOutcome RunHeadless(Session& session, Prompt& prompt, const RunRequest& request,
                       const std::function<bool(RunSimController&, std::string&)>& prepare) {
    RunOutcome outcome;
    ProjectModel& m = session.model;
    m.flags.PendingAfterSave = request.passive ? 4 : 3;

    RunSimServices services;
    std::mt19937_64 engineSeed{std::random_device{}()};
    services.random = [&] {
        return request.seed >= 0 ? request.seed
                                 : std::uniform_real_distribution<double>(0.0, 1.0)(engineSeed);
    };
    services.clock = [] {
        const std::time_t now = std::time(nullptr);
        char buf[16];
        std::tm local{};
        localtime_r(&now, &local);
        std::strftime(buf, sizeof buf, "%H:%M:%S", &local);
        return std::string(buf);
    };
    services.timeLimitSeconds = request.timeLimitSeconds;
    services.engineThreads = request.engineThreads;
    RunSimController run(session, prompt, services);
    run.OpenRun();
    ScreenFields& f = run.fields();
    if (NumVal(f.At("Text1", 2).text) <= 0)
        f.At("Text1", 2).text = std::to_string(request.defaultYear);
    if (!request.periodBegin.empty()) {
        f.At("Text1", 0).text = request.periodBegin;
        f.At("Text1", 1).text = request.periodEnd;
    }
    f["weatherseq"].value = request.repeatWeather ? 1 : 0;
    if (prepare && !prepare(run, outcome.error)) return outcome;

    const auto started = std::chrono::steady_clock::now();
    if (!run.ExecuteRun()) {
        outcome.error = "the run did not start";
        return outcome;
    }
    while (run.Wait(1000)) {
    }
    outcome.seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    outcome.run = run.run();
    outcome.status = 1;
    // A run stopped at the time limit or refused by the engine shows only the
    // engine's record, never an earlier run's report.
    if (m.flags.RunDone != 1 || !run.EngineCompleted()) {
        outcome.error = "simulation not completed";
        return outcome;
    }
    if (!run.ReviewResults()) {
        outcome.error = "the results could not be gathered";
        return outcome;
    }
    outcome.report = ReadTextFile(session.paths.Resolve(kResultsFile)).value_or("");
    outcome.status = 0;
    return outcome;
}

}  // namespace solvane
