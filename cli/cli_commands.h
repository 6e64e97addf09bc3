// The headless command line: what each command does, apart from parsing.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "core/session.h"
#include "run/headless_run.h"
#include "ui/scripted_prompt.h"
#include "weather/climate_database.h"

namespace solvane::cli {

struct Options {
    std::string home;     // --home DIR
    std::string command;  // first word that is not an option
    std::vector<std::string> arguments;
    bool help = false;
    bool version = false;
    bool passive = false;                   // --passive: comfort analysis without HVAC
    bool repeatWeather = false;             // --repeat-weather: the fixed weather sequence
    bool json = false;                      // --json: the run summary as JSON
    std::string recorded;                   // --recorded FILE: a recorded weather year
    std::string weatherFormat;              // --weather-format epw|wyec2|iwec|custom
    std::string periodBegin, periodEnd;     // --period 1-Jan 31-Dec
    std::string seed;                       // --seed VALUE: the weather seed, 0 <= VALUE < 1
    double timeLimit = 3600;                // --time-limit SECONDS: the engine is stopped after it
    int ensemble = 0;                       // --ensemble N: N runs on N weather seeds
    int jobs = 0;                           // --jobs N: runs at a time (0: every core)
    int region = 0;                         // --region N: sweep one region (0: all)
    std::string defaults = "keep";          // --defaults keep|code: the sweep's envelope
    std::string out;                        // --out FILE or FOLDER
    int stationFirst = 0, stationLast = 0;  // --stations A-B: a range of the sweep's list
    int jobList = 0;                        // --job-list K: write K jobs instead of sweeping
    bool baseline = false;                  // --baseline: the code baseline run beside the design
    int threads = 0;                        // --threads N: the engine's threads (0: every core)
};

// Parses the arguments; on a mistake returns false with the reason in `error`.
bool ParseOptions(const std::vector<std::string>& args, Options& options, std::string& error);

void PrintHelp(std::ostream& out);

// Runs the start-up steps on the program folder, answering every prompt with
// its first button, and prints what the start-up screen would show. Returns
// the process exit code.
int RunCheck(const Options& options, const std::string& executable, std::ostream& out,
             std::ostream& err);

// Opens a project and does what "Execute Run" does in the program folder's
// temp, then prints the run's summary as text or JSON (docs/cli-run-json.md).
// Returns the process exit code: 0 done, 1 the engine or the results failed,
// 2 bad input.
int RunProject(const Options& options, const std::string& executable, std::ostream& out,
               std::ostream& err);

// The weather ensemble of `run --ensemble N` (docs/ensembles.md).
int RunEnsembleCommand(const Options& options, const std::string& executable, std::ostream& out,
                       std::ostream& err);
// `run --baseline`: the design and its code baseline (docs/baseline.md).
int RunBaselineCommand(const Options& options, const std::string& executable, std::ostream& out,
                       std::ostream& err);
// `sweep PROJECT.inp`: the design at every station (docs/sweeps.md).
int RunSweepCommand(const Options& options, const std::string& executable, std::ostream& out,
                    std::ostream& err);
// `merge PART.csv...`: the parts of a sweep run as several jobs, as one file.
int RunMergeCommand(const Options& options, std::ostream& out, std::ostream& err);

// ---- shared by the commands ---------------------------------------------------

struct HeadlessProject {
    Session session;
    ScriptedPrompt prompt;
    ClimateIndex climate;
    std::string file;  // the project, as an absolute path
    std::size_t startupPrompts = 0;
};
// Starts the program on its folder and opens the project named first among
// the arguments; false after telling why.
// The climate database is read only when `readClimateIndex` (a sweep).
bool OpenHeadless(const Options& options, const std::string& executable, HeadlessProject& p,
                  std::ostream& err, bool readClimateIndex = false);
// --seed as a number; false after telling why.
bool ParseSeed(const Options& options, double& seed, std::ostream& err);
RunRequest RequestFromOptions(const Options& options, double seed);
void PrintPrompts(const ScriptedPrompt& prompt, std::size_t from, std::ostream& out);

}  // namespace solvane::cli
