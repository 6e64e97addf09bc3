// One real run of the office sample, with hourly output, shared by the tests
// of the table cuts, the stored results and the hourly files: the program
// folder it ran in stays until the test program ends.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "../run/sample_program.h"
#include "core/text_file.h"
#include "run/run_sim.h"

namespace solvane::test {

struct OfficeRun {
    std::filesystem::path root;  // the program folder, temp holding the results
    std::string report;          // temp\ecalc$.out
};

inline const OfficeRun& RunOfficeWithHourlyOutput() {
    static const OfficeRun run = [] {
        namespace fs = std::filesystem;
        OfficeRun r;
        r.root = MakeSampleProgram("office_hourly");
        InstallEngine(r.root);
        Session session;
        session.paths = ProgramPaths(r.root);
        ScriptedPrompt prompt;
        LoadSample(session, prompt, "Small Office [two levels, I-P].inp");
        RunSimController sim(session, prompt,
                             {[] { return 0.5; }, [] { return std::string(); }, 0});
        sim.OpenRun();
        sim.fields()["weatherseq"].value = 1;
        sim.fields()["hourlyoutput"].value = 1;
        EXPECT_TRUE(sim.ExecuteRun());
        while (sim.Wait(200)) {
        }
        EXPECT_TRUE(sim.ReviewResults());
        r.report = ReadTextFile(r.root / "temp" / "ecalc$.out").value_or("");
        static struct Cleanup {
            fs::path root;
            ~Cleanup() {
                std::error_code ec;
                fs::remove_all(root, ec);
            }
        } cleanup{r.root};
        return r;
    }();
    return run;
}

// A program folder of its own holding the office run's results in temp.
inline std::filesystem::path ProgramWithOfficeResults(const std::string& name) {
    namespace fs = std::filesystem;
    const OfficeRun& run = RunOfficeWithHourlyOutput();
    const fs::path root = MakeSampleProgram(name);
    for (const auto& entry : fs::directory_iterator(run.root / "temp"))
        fs::copy_file(entry.path(), root / "temp" / entry.path().filename(),
                      fs::copy_options::overwrite_existing);
    return root;
}

}  // namespace solvane::test
