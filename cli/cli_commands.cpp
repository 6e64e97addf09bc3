#include "cli/cli_commands.h"

#include <cctype>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <random>

#include "cli/program_services.h"
#include "cli/run_summary_output.h"
#include "core/numeric_helpers.h"
#include "core/program_paths.h"
#include "core/startup.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "run/headless_run.h"
#include "ui/scripted_prompt.h"
#include "weather/recorded_weather.h"

namespace solvane::cli {

bool ParseOptions(const std::vector<std::string>& args, Options& options, std::string& error) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            options.help = true;
        } else if (a == "--version") {
            options.version = true;
        } else if (a == "--passive") {
            options.passive = true;
        } else if (a == "--repeat-weather") {
            options.repeatWeather = true;
        } else if (a == "--json") {
            options.json = true;
        } else if (a == "--baseline") {
            options.baseline = true;
        } else if (a == "--recorded" || a == "--seed" || a == "--weather-format") {
            if (i + 1 >= args.size()) {
                error = a + " needs a value";
                return false;
            }
            (a == "--seed"       ? options.seed
             : a == "--recorded" ? options.recorded
                                 : options.weatherFormat) = args[++i];
        } else if (a == "--ensemble" || a == "--jobs" || a == "--region" || a == "--job-list") {
            const std::string value = i + 1 < args.size() ? args[++i] : std::string();
            const double n = NumVal(value);
            const double most = a == "--region" ? kRegions : 100000;
            if (value.empty() || value.find_first_not_of("0123456789") != std::string::npos ||
                n < 1 || n > most) {
                error = a + " needs a whole number from 1 to " + NumText(most);
                return false;
            }
            const int v = static_cast<int>(n);
            (a == "--ensemble" ? options.ensemble
             : a == "--jobs"   ? options.jobs
             : a == "--region" ? options.region
                               : options.jobList) = v;
        } else if (a == "--defaults" || a == "--out" || a == "--stations") {
            if (i + 1 >= args.size()) {
                error = a + " needs a value";
                return false;
            }
            const std::string value = args[++i];
            if (a == "--out") {
                options.out = value;
            } else if (a == "--defaults") {
                if (value != "keep" && value != "code") {
                    error = "--defaults takes keep or code";
                    return false;
                }
                options.defaults = value;
            } else {
                const std::size_t dash = value.find('-');
                options.stationFirst = static_cast<int>(NumVal(value.substr(0, dash)));
                options.stationLast = dash == std::string::npos
                                          ? options.stationFirst
                                          : static_cast<int>(NumVal(value.substr(dash + 1)));
                if (options.stationFirst < 1 || options.stationLast < options.stationFirst ||
                    value.find_first_not_of("0123456789-") != std::string::npos) {
                    error = "--stations takes a range of the list, e.g. --stations 1-500";
                    return false;
                }
            }
        } else if (a == "--period") {
            if (i + 2 >= args.size()) {
                error = "--period needs a first and a last day, e.g. --period 1-Jan 31-Dec";
                return false;
            }
            options.periodBegin = args[++i];
            options.periodEnd = args[++i];
        } else if (a == "--home") {
            if (i + 1 >= args.size()) {
                error = "--home needs a folder";
                return false;
            }
            options.home = args[++i];
        } else if (a == "--time-limit" || a.rfind("--time-limit=", 0) == 0) {
            std::string value;
            if (a.size() > 12) {
                value = a.substr(13);
            } else if (i + 1 < args.size()) {
                value = args[++i];
            }
            options.timeLimit = NumVal(value);
            if (!IsNumericText(value) || !(options.timeLimit > 0)) {
                error = "--time-limit needs a number of seconds above 0";
                return false;
            }
        } else if (a == "--threads") {
            const std::string value = i + 1 < args.size() ? args[++i] : std::string();
            const double n = NumVal(value);
            if (value.empty() || value.find_first_not_of("0123456789") != std::string::npos ||
                !(n >= 1 && n <= 256)) {
                error = "--threads needs a whole number from 1 to 256";
                return false;
            }
            options.threads = static_cast<int>(n);
        } else if (a.rfind("--home=", 0) == 0) {
            options.home = a.substr(7);
        } else if (!a.empty() && a[0] == '-') {
            error = "unknown option " + a;
            return false;
        } else if (options.command.empty()) {
            options.command = a;
        } else {
            options.arguments.push_back(a);
        }
    }
    return true;
}

void PrintHelp(std::ostream& out) {
    out << "Usage: solvane-cli [--home DIR] COMMAND [ARGUMENTS]\n"
           "\n"
           "Whole-building energy analysis from the command line.\n"
           "\n"
           "Commands:\n"
           "  check            start the program on its folder and print what the start-up\n"
           "                   screen shows (the climate count line and the code banner)\n"
           "  run PROJECT.inp  open a project, simulate it with the engine and print the\n"
           "                   run's summary: EUIs, energy by end use, loads, costs\n"
           "  sweep PROJECT.inp --out FILE.csv|FILE.json\n"
           "                   run the design at every station of the climate database\n"
           "                   (docs/sweeps.md); a stopped sweep continues where it stopped\n"
           "  merge PART.csv... --out FILE.csv|FILE.json\n"
           "                   join the parts of a sweep that ran as several jobs\n"
           "\n"
           "Options:\n"
           "  --home DIR       the program folder (else SOLVANE_HOME, else beside the program)\n"
           "  --passive        run: comfort analysis with no HVAC\n"
           "  --repeat-weather run: use the fixed simulated weather sequence\n"
           "  --time-limit S   run: stop the engine after S seconds (default 3600)\n"
           "  --threads N      run: the engine steps its zones on N threads (default: all cores)\n"
           "  --seed VALUE     run: the simulated weather's seed, 0 <= VALUE < 1\n"
           "  --period A B     run: first and last day, e.g. --period 1-Jan 31-Dec\n"
           "  --recorded FILE  run: a recorded weather year instead of simulated weather\n"
           "  --weather-format epw|wyec2|iwec|custom\n"
           "                   run: the recorded file's form (by default from its name:\n"
           "                   *.epw, WYEC2.txt, IWEC.txt, *.cus)\n"
           "  --json           run: print the summary as JSON (docs/cli-run-json.md)\n"
           "  --ensemble N     run: N runs on N weather seeds; the median and the 10th to\n"
           "                   90th percentile of each figure (docs/ensembles.md)\n"
           "  --baseline       run: also run the code baseline building and print both\n"
           "                   with the percentage saved (docs/baseline.md)\n"
           "  --jobs N         run --ensemble, sweep: runs at a time (default: every core)\n"
           "  --region N       sweep: one region, 1 USA ... 8 Australia-SW-Pacific\n"
           "  --defaults keep|code\n"
           "                   sweep: keep the design's envelope, or take each climate\n"
           "                   zone's code defaults (default keep)\n"
           "  --stations A-B   sweep: only stations A to B of the list (1 = first)\n"
           "  --job-list K     sweep: write K jobs for GNU parallel or a Slurm array into\n"
           "                   the --out folder instead of sweeping\n"
           "  --out PATH       sweep, merge: the results file (or the job folder)\n"
           "  --help           show this text\n"
           "  --version        show the version\n";
}

namespace {

StartupEnvironment Today() {
    StartupEnvironment env;
    const std::time_t now = std::time(nullptr);
    const std::tm* t = std::localtime(&now);
    env.year = t->tm_year + 1900;
    env.month = t->tm_mon + 1;
    env.day = t->tm_mday;
    return env;
}

// Finds the program folder and runs start-up; false after telling why. A run
// takes its weather from the project and leaves the climate database unread
// (some 12 MB, the better part of the start-up): only the start-up screen's
// count line needs it.
bool StartHeadless(Session& session, Prompt& prompt, ClimateIndex& climate, const Options& options,
                   const std::string& executable, std::ostream& err, bool readClimateIndex) {
    try {
        session.paths = LocateProgramDir(options.home, executable);
        StartupHooks hooks = MakeStartupHooks(climate);
        if (!readClimateIndex) hooks.loadClimateIndex = nullptr;
        StartUp(session, prompt, Today(), hooks);
    } catch (const std::exception& e) {
        err << "solvane-cli: " << e.what() << "\n";
        return false;
    }
    return true;
}

}  // namespace

void PrintPrompts(const ScriptedPrompt& prompt, std::size_t from, std::ostream& out) {
    for (std::size_t i = from; i < prompt.asked.size(); ++i)
        out << "[" << prompt.asked[i].title << "] " << prompt.asked[i].text << "\n";
}

namespace {

// The recorded weather file's form, 1..4, from --weather-format or its name;
// 0 when neither tells it.
int RecordedFormatOf(const Options& options) {
    auto lower = [](std::string t) {
        for (char& c : t) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return t;
    };
    const std::string given = lower(options.weatherFormat);
    const std::string name = lower(std::filesystem::path(options.recorded).filename().string());
    const std::string ext = lower(std::filesystem::path(options.recorded).extension().string());
    if (given == "epw" || (given.empty() && ext == ".epw")) return 1;
    if (given == "wyec2" || (given.empty() && name == "wyec2.txt")) return 2;
    if (given == "iwec" || (given.empty() && name == "iwec.txt")) return 3;
    if (given == "custom" || (given.empty() && ext == ".cus")) return 4;
    return 0;
}

// Takes the recorded weather file as the recorded weather screen does, for
// the year in the run screen; a year that differs is noted and the run goes on.
bool TakeRecordedWeather(Session& session, ScriptedPrompt& prompt, const Options& options,
                         RunSimController& run, std::ostream& err) {
    const int format = RecordedFormatOf(options);
    if (format == 0) {
        err << "solvane-cli: --weather-format must be epw, wyec2, iwec or custom (the form of "
            << options.recorded << " is not told by its name)\n";
        return false;
    }
    std::error_code ec;
    const auto file = std::filesystem::absolute(options.recorded, ec);
    SelectWeatherController select(session, prompt);
    select.Open(run.fields().At("Text1", 2).text);
    select.browser.ChangeFolder(file.parent_path().string());
    select.ChooseFormat(format);
    select.fields()["Text1"].text = file.string();
    const std::size_t from = prompt.asked.size();
    const bool taken = select.Ok();
    for (std::size_t i = from; i < prompt.asked.size(); ++i) {
        const AskedPrompt& p = prompt.asked[i];
        if (p.title == "Weather Year" || !taken) err << "solvane-cli: " << p.text << "\n";
    }
    if (!taken) err << "solvane-cli: " << options.recorded << " was not taken\n";
    return taken;
}

}  // namespace

int RunCheck(const Options& options, const std::string& executable, std::ostream& out,
             std::ostream& err) {
    Session session;
    ScriptedPrompt prompt;
    ClimateIndex climate;
    if (!StartHeadless(session, prompt, climate, options, executable, err, true)) return 2;
    out << "Program folder: " << session.paths.ProgramDir().string() << "\n";
    out << session.mainform.Text("Label8") << "\n";
    out << session.mainmenu.Text("Label8") << "\n";
    out << session.mainmenu.Text("Label13") << "\n";
    PrintPrompts(prompt, 0, out);
    return 0;
}

RunRequest RequestFromOptions(const Options& options, double seed) {
    RunRequest request;
    request.passive = options.passive;
    request.repeatWeather = options.repeatWeather;
    request.seed = seed;
    request.periodBegin = options.periodBegin;
    request.periodEnd = options.periodEnd;
    request.defaultYear = Today().year;
    request.timeLimitSeconds = options.timeLimit;
    request.engineThreads = options.threads;
    return request;
}

bool ParseSeed(const Options& options, double& seed, std::ostream& err) {
    seed = -1;
    if (options.seed.empty()) return true;
    seed = NumVal(options.seed);
    if (seed < 0 || seed >= 1 ||
        options.seed.find_first_not_of(" .0123456789") != std::string::npos) {
        err << "solvane-cli: --seed needs a number from 0 up to but not including 1\n";
        return false;
    }
    return true;
}

bool OpenHeadless(const Options& options, const std::string& executable, HeadlessProject& p,
                  std::ostream& err, bool readClimateIndex) {
    if (options.arguments.empty()) {
        err << "solvane-cli: " << options.command << " needs a project file\n";
        return false;
    }
    if (!StartHeadless(p.session, p.prompt, p.climate, options, executable, err, readClimateIndex))
        return false;
    p.startupPrompts = p.prompt.asked.size();
    std::error_code ec;
    p.file = std::filesystem::absolute(options.arguments[0], ec).string();
    const Navigation opened = OpenProjectFromPath(p.session, p.prompt, MakeProjectFileHooks(),
                                                  p.file, "Project Retrieved");
    if (opened.show != Screen::MainMenu) {
        PrintPrompts(p.prompt, p.startupPrompts, err);
        err << "solvane-cli: " << p.file << " could not be opened\n";
        return false;
    }
    return true;
}

int RunProject(const Options& options, const std::string& executable, std::ostream& out,
               std::ostream& err) {
    if (options.ensemble > 0 && options.baseline) {
        err << "solvane-cli: --ensemble and --baseline are run one at a time\n";
        return 2;
    }
    if (options.ensemble > 0) return RunEnsembleCommand(options, executable, out, err);
    if (options.baseline) return RunBaselineCommand(options, executable, out, err);
    double seed = -1;
    if (!ParseSeed(options, seed, err)) return 2;
    HeadlessProject opened;
    if (!OpenHeadless(options, executable, opened, err)) return 2;
    Session& session = opened.session;
    ScriptedPrompt& prompt = opened.prompt;
    const std::size_t startupPrompts = opened.startupPrompts;
    const std::string& project = opened.file;
    std::error_code ec;
    const RunRequest request = RequestFromOptions(options, seed);
    bool badInput = false;
    // Recorded weather is taken as the recorded weather screen takes it.
    auto recorded = [&](RunSimController& run, std::string& error) {
        if (options.recorded.empty()) return true;
        if (!TakeRecordedWeather(session, prompt, options, run, err)) {
            badInput = true;
            error = options.recorded + " was not taken";
            return false;
        }
        run.fields().At("weather", 0).value = 0;
        run.fields().At("weather", 1).value = 1;
        return true;
    };
    const RunOutcome outcome = RunHeadless(session, prompt, request, recorded);
    if (outcome.status != 0) {
        if (badInput) return 2;
        PrintPrompts(prompt, startupPrompts, err);
        err << "solvane-cli: " << outcome.error << "\n";
        return outcome.status;
    }
    ProjectModel& m = session.model;
    const double seconds = outcome.seconds;
    const auto summary = ReadRunSummary(outcome.report);
    if (!summary) {
        for (const char* name : {"\\temp\\Monitor.txt"})
            if (const auto text = ReadTextFile(session.paths.Resolve(name)))
                for (const auto& line : SplitLines(*text)) err << line << "\n";
        err << "solvane-cli: " << summary.error << "\n";
        return 1;
    }
    SummaryContext context{m, outcome.run, project, seconds, WeatherUsed(outcome.report)};
    if (options.json)
        PrintSummaryJson(*summary.table, context, out);
    else
        PrintSummaryText(*summary.table, context, out);
    return 0;
}

}  // namespace solvane::cli
