#include "cli/cli_commands.h"

#include <chrono>
#include <ctime>
#include <random>

#include "cli/program_services.h"
#include "core/numeric_helpers.h"
#include "core/program_paths.h"
#include "core/startup.h"
#include "core/text_file.h"
#include "projectfile/file_dialogs.h"
#include "run/engine_contract.h"
#include "run/engine_process.h"
#include "ui/scripted_prompt.h"

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
           "  run PROJECT.inp  open a project, simulate its year with the engine and print\n"
           "                   the engine's record and report\n"
           "\n"
           "Options:\n"
           "  --home DIR       the program folder (else SOLVANE_HOME, else beside the program)\n"
           "  --passive        run: comfort analysis with no HVAC\n"
           "  --repeat-weather run: use the fixed simulated weather sequence\n"
           "  --time-limit S   run: stop the engine after S seconds (default 3600)\n"
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

// Finds the program folder and runs start-up; false after telling why.
bool StartHeadless(Session& session, Prompt& prompt, ClimateIndex& climate, const Options& options,
                   const std::string& executable, std::ostream& err) {
    try {
        session.paths = LocateProgramDir(options.home, executable);
        StartUp(session, prompt, Today(), MakeStartupHooks(climate));
    } catch (const std::exception& e) {
        err << "solvane-cli: " << e.what() << "\n";
        return false;
    }
    return true;
}

void PrintPrompts(const ScriptedPrompt& prompt, std::size_t from, std::ostream& out) {
    for (std::size_t i = from; i < prompt.asked.size(); ++i)
        out << "[" << prompt.asked[i].title << "] " << prompt.asked[i].text << "\n";
}

}  // namespace

int RunCheck(const Options& options, const std::string& executable, std::ostream& out,
             std::ostream& err) {
    Session session;
    ScriptedPrompt prompt;
    ClimateIndex climate;
    if (!StartHeadless(session, prompt, climate, options, executable, err)) return 2;
    out << "Program folder: " << session.paths.ProgramDir().string() << "\n";
    out << session.mainform.Text("Label8") << "\n";
    out << session.mainmenu.Text("Label8") << "\n";
    out << session.mainmenu.Text("Label13") << "\n";
    PrintPrompts(prompt, 0, out);
    return 0;
}

int RunProject(const Options& options, const std::string& executable, std::ostream& out,
               std::ostream& err) {
    if (options.arguments.empty()) {
        err << "solvane-cli: run needs a project file\n";
        return 2;
    }
    Session session;
    ScriptedPrompt prompt;
    ClimateIndex climate;
    if (!StartHeadless(session, prompt, climate, options, executable, err)) return 2;
    const std::size_t startupPrompts = prompt.asked.size();

    std::error_code ec;
    const std::string project = std::filesystem::absolute(options.arguments[0], ec).string();
    const Navigation opened =
        OpenProjectFromPath(session, prompt, MakeProjectFileHooks(), project, "Project Retrieved");
    if (opened.show != Screen::MainMenu) {
        PrintPrompts(prompt, startupPrompts, err);
        err << "solvane-cli: " << project << " could not be opened\n";
        return 2;
    }
    ProjectModel& m = session.model;
    out << "Project: " << m.ProjectData[kProjName] << " -- " << m.ProjectData[kLocation] << "\n";

    RunSettings run;
    run.RunType = options.passive ? 4 : 3;
    run.WeatherYear = NumVal(m.ProjectData[kConYear]) > 0 ? m.ProjectData[kConYear]
                                                          : std::to_string(Today().year);
    run.ComfortLower = m.session.Units == 2 ? "20" : "68";
    run.ComfortUpper = m.session.Units == 2 ? "27" : "79";
    std::mt19937_64 engineSeed{std::random_device{}()};
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    const auto control = ControlFileText(run, m.session.CodeNum);
    const auto controlPath = session.paths.Resolve("\\temp\\ecalc$.tmp");
    std::string why;
    if (!control ||
        !WriteEngineInput(session, prompt, options.repeatWeather,
                          [&] { return uniform(engineSeed); }) ||
        !WriteFileAtomic(controlPath, *control, &why)) {
        PrintPrompts(prompt, startupPrompts, err);
        if (!why.empty()) err << "solvane-cli: " << WriteFailureText(controlPath, why) << "\n";
        err << "solvane-cli: the engine's input could not be written\n";
        return 2;
    }
    m.flags.RunResultCode = static_cast<std::int16_t>(run.RunType);

    // What an earlier run left must not pass for this one's.
    DeleteComfortFiles(session.paths);
    DeleteEngineOutputs(session.paths);
    std::string error;
    const auto started = std::chrono::steady_clock::now();
    EngineProcess engine = StartEngine(session.paths, error);
    if (engine.pid < 0) {
        err << "solvane-cli: " << error << "\n";
        return 2;
    }
    const auto limit = std::chrono::duration<double>(options.timeLimit);
    bool timedOut = false;
    while (IsEngineRunning(engine, 1000)) {
        if (std::chrono::steady_clock::now() - started >= limit) {
            timedOut = true;
            StopEngine(engine, 5000);
        }
    }
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();

    // A failed run shows only its record, which says why.
    const bool completed = engine.exitStatus == 0;
    for (const char* name : {"\\temp\\Monitor.txt", "\\temp\\sim$.out"}) {
        if (!completed && std::string_view(name).ends_with("sim$.out")) continue;
        if (const auto text = ReadTextFile(session.paths.Resolve(name))) {
            for (const auto& line : SplitLines(*text)) out << line << "\n";
        }
    }
    if (completed) {
        out << "Simulation completed in " << FormatField(NumText(seconds), "####.##") << " Sec.\n";
        return 0;
    }
    if (timedOut)
        err << "solvane-cli: the engine was stopped at the time limit of "
            << NumText(options.timeLimit) << " s\n";
    else if (engine.exitStatus < 0)
        err << "solvane-cli: the engine was ended by a signal\n";
    else
        err << "solvane-cli: the engine ended with status " << engine.exitStatus << "\n";
    err << "solvane-cli: simulation not completed\n";
    return 1;
}

}  // namespace solvane::cli
