#include "cli/cli_commands.h"

#include <ctime>

#include "cli/program_services.h"
#include "core/program_paths.h"
#include "core/startup.h"
#include "ui/scripted_prompt.h"

namespace solvane::cli {

bool ParseOptions(const std::vector<std::string>& args, Options& options, std::string& error) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            options.help = true;
        } else if (a == "--version") {
            options.version = true;
        } else if (a == "--home") {
            if (i + 1 >= args.size()) {
                error = "--home needs a folder";
                return false;
            }
            options.home = args[++i];
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
           "\n"
           "Options:\n"
           "  --home DIR       the program folder (else SOLVANE_HOME, else beside the program)\n"
           "  --help           show this text\n"
           "  --version        show the version\n";
}

int RunCheck(const Options& options, const std::string& executable, std::ostream& out,
             std::ostream& err) {
    Session session;
    try {
        session.paths = LocateProgramDir(options.home, executable);
    } catch (const std::exception& e) {
        err << "solvane-cli: " << e.what() << "\n";
        return 2;
    }
    ScriptedPrompt prompt;
    StartupEnvironment env;
    const std::time_t now = std::time(nullptr);
    const std::tm* t = std::localtime(&now);
    env.year = t->tm_year + 1900;
    env.month = t->tm_mon + 1;
    env.day = t->tm_mday;
    ClimateIndex climate;
    try {
        StartUp(session, prompt, env, MakeStartupHooks(climate));
    } catch (const std::exception& e) {
        err << "solvane-cli: " << e.what() << "\n";
        return 2;
    }
    out << "Program folder: " << session.paths.ProgramDir().string() << "\n";
    out << session.mainform.Text("Label8") << "\n";
    out << session.mainmenu.Text("Label8") << "\n";
    out << session.mainmenu.Text("Label13") << "\n";
    for (const auto& p : prompt.asked) out << "[" << p.title << "] " << p.text << "\n";
    return 0;
}

}  // namespace solvane::cli
