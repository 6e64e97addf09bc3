// The run screen `runsim`: the analysis period, design temperatures, weather
// choice and comfort limits; "Execute Run" writes the engine's files, starts
// the engine and watches it; "Review Results" gathers what it wrote.
#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "core/session.h"
#include "run/engine_contract.h"
#include "run/engine_process.h"
#include "ui/prompt.h"
#include "ui/screen_fields.h"

namespace solvane {

// What the last run was given; kept for the next opening of the screen and
// for the result screens.
struct RunState {
    std::array<std::string, 2> RunDates;
    float ComfortLower = 0, ComfortUpper = 0;
    std::string WeatherYear;
    int SkippedMonthCount = 0;
    std::array<std::string, 13> SkippedMonthName;  // [1..12]
    std::int16_t FirstDayOfYear = 0;               // 1 = Sunday
    int HourlyOutputFlag = 0;
    int RecordedWeatherType = 0;  // the recorded file's type number, 0 for none
};

struct RunSimServices {
    std::function<double()> random;      // a new weather seed in [0, 1)
    std::function<std::string()> clock;  // the time of day as the screen shows it
    // Stops an engine that has run this long (0: no limit), telling the user.
    double timeLimitSeconds = 0;
    // Threads the engine steps its zones on (0: the engine's default, the
    // machine's core count; the engine is then started with no arguments).
    int engineThreads = 0;
};

class RunSimController {
  public:
    RunSimController(Session& session, Prompt& prompt, RunSimServices services);

    ScreenFields& fields() { return fields_; }
    RunState& run() { return run_; }
    Session& session() { return session_; }

    // Fills the screen for the run the hub asked for (`PendingAfterSave`).
    void OpenRun();
    // Clicking a month label marks it as skipped, or unmarks it.
    void ToggleMonth(int index);

    // "Execute Run": writes the engine's input, the control file and the input
    // report, then starts the engine. False when the run stopped before that,
    // after telling the user; the screen stays open.
    bool ExecuteRun();
    // One pass of the wait: steps the bar and the clock line, and answers
    // whether the engine still runs. On its end the screen shows the time taken.
    bool Wait(int milliseconds);
    bool Running() const { return engine_.pid > 0 && !engine_.finished; }
    // True once the engine has ended with its run completed (exit status 0).
    bool EngineCompleted() const { return engine_.finished && engine_.exitStatus == 0; }
    // Ends a running engine and puts the project and the results file back as
    // they were before "Execute Run".
    void Cancel();
    // "Review Results": takes the location from the engine's record and
    // appends the engine's report files to the results file.
    // True when the results are ready for the energy breakdown screen, false
    // after telling the user why not.
    bool ReviewResults();

    // The skipped-month marking colour, a background.
    static constexpr Color kMarked = 0xFFFF80;  // light yellow

  private:
    bool PrepareRun();
    void Restore();
    void Finish();

    Session& session_;
    Prompt& prompt_;
    RunSimServices services_;
    ScreenFields fields_;
    RunState run_;
    EngineProcess engine_;
    std::chrono::steady_clock::time_point started_;
    // What "Execute Run" changed, for Cancel and the time limit.
    std::optional<ProjectModel> before_;
    std::optional<RunState> runBefore_;
    std::optional<std::string> previousResults_;
};

// How long the desktop lets the engine run before stopping it.
inline constexpr double kEngineTimeLimitSeconds = 3600;

// The results file's name in the program folder.
inline constexpr const char* kResultsFile = "\\temp\\ecalc$.out";

}  // namespace solvane
