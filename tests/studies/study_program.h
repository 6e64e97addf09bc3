// A test program folder with the climate database and the real engine, and a
// sample project opened in it.
#pragma once

#include "run/headless_run.h"
#include "sample_program.h"
#include "studies/run_metrics.h"

namespace solvane::test {

struct StudyProgram {
    std::filesystem::path root;
    Session session;
    ScriptedPrompt prompt;

    explicit StudyProgram(const std::string& name, const std::string& sample) {
        root = MakeSampleProgram(name);
        std::filesystem::create_directory_symlink(
            std::filesystem::path(SOLVANE_DATA_DIR) / "weather", root / "weather");
        InstallEngine(root);
        session.paths = ProgramPaths(root);
        LoadSample(session, prompt, sample);
    }
    ~StudyProgram() {
        std::error_code ec;
        std::filesystem::remove_all(root, ec);
    }
};

inline constexpr const char* kOffice = "Small Office [two levels, I-P].inp";

// A quarter of a year keeps the engine runs short.
inline RunRequest QuarterRun() {
    RunRequest r;
    r.periodBegin = "1-Jan";
    r.periodEnd = "31-Mar";
    r.defaultYear = 2021;
    return r;
}

}  // namespace solvane::test
