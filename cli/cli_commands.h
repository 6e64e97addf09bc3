// The headless command line: what each command does, apart from parsing.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace solvane::cli {

struct Options {
    std::string home;     // --home DIR
    std::string command;  // first word that is not an option
    std::vector<std::string> arguments;
    bool help = false;
    bool version = false;
    bool passive = false;                // --passive: comfort analysis without HVAC
    bool repeatWeather = false;          // --repeat-weather: the fixed weather sequence
    bool json = false;                   // --json: the run summary as JSON
    std::string recorded;                // --recorded FILE: a recorded weather year
    std::string weatherFormat;           // --weather-format epw|wyec2|iwec|custom
    std::string periodBegin, periodEnd;  // --period 1-Jan 31-Dec
    std::string seed;                    // --seed VALUE: the weather seed, 0 <= VALUE < 1
    double timeLimit = 3600;             // --time-limit SECONDS: the engine is stopped after it
    int threads = 0;                     // --threads N: the engine's threads (0: every core)
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

}  // namespace solvane::cli
