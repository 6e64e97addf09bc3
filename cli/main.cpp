// solvane-cli: the program's work without its windows, for batch runs and tests.
#include <iostream>

#include "cli/cli_commands.h"

int main(int argc, char** argv) {
    using namespace solvane::cli;
    Options options;
    std::string error;
    if (!ParseOptions({argv + 1, argv + argc}, options, error)) {
        std::cerr << "solvane-cli: " << error << "\n";
        PrintHelp(std::cerr);
        return 2;
    }
    if (options.version) {
        std::cout << "solvane-cli " << SOLVANE_VERSION << "\n";
        return 0;
    }
    if (options.help || options.command.empty()) {
        PrintHelp(std::cout);
        return options.help ? 0 : 2;
    }
    if (options.command == "check") return RunCheck(options, argv[0], std::cout, std::cerr);
    if (options.command == "run") return RunProject(options, argv[0], std::cout, std::cerr);
    if (options.command == "sweep") return RunSweepCommand(options, argv[0], std::cout, std::cerr);
    if (options.command == "merge") return RunMergeCommand(options, std::cout, std::cerr);
    std::cerr << "solvane-cli: unknown command " << options.command << "\n";
    PrintHelp(std::cerr);
    return 2;
}
