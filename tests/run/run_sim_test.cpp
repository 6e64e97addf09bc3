// The run screen end to end: the control files it writes for the engine,
// the real engine started and watched, Cancel and the time limit.
#include "run/run_sim.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "engine/project_translation.h"
#include "sample_program.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

class RunSimTest : public ::testing::Test {
  protected:
    void SetUp() override {
        root_ = test::MakeSampleProgram(
            std::string("runsim_") +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        session_.paths = ProgramPaths(root_);
    }
    void TearDown() override { fs::remove_all(root_); }

    void Load(const std::string& sample) {
        const auto text = ReadTextFile(std::string(SOLVANE_DATA_DIR) + "/sample/" + sample);
        ASSERT_TRUE(text);
        ASSERT_EQ(ReadProjectFile(session_, prompt_, *text, sample, {}), ReadStatus::Read);
        session_.model.flags.PendingAfterSave = 3;
    }
    void UseEngine(const std::string& script = {}) {
        if (script.empty()) {
            fs::create_symlink(SOLV2020_PATH, root_ / "Solv2020");
        } else {
            WriteFileAtomic(root_ / "Solv2020", script);
            fs::permissions(root_ / "Solv2020", fs::perms::owner_all);
        }
    }
    std::vector<std::string> TempLines(const std::string& name) {
        return SplitLines(ReadTextFile(root_ / "temp" / name).value_or(""));
    }
    RunSimController Controller(double limit = 0) {
        return RunSimController(
            session_, prompt_,
            {[] { return 0.25; }, [] { return std::string("20:00:00"); }, limit});
    }

    fs::path root_;
    Session session_;
    ScriptedPrompt prompt_;
};

TEST_F(RunSimTest, ControlFileFromTheScreen) {
    Load("Small Office [two levels, I-P].inp");
    UseEngine("#!/bin/sh\nexit 0\n");
    RunSimController c = Controller();
    c.OpenRun();
    EXPECT_EQ(c.fields().Text("Tlower"), "68");
    EXPECT_EQ(c.fields().Text("Tupper"), "79");
    c.fields().At("Text1", 2).text = "20";
    c.ToggleMonth(2);
    c.ToggleMonth(6);
    c.ToggleMonth(0);
    c.ToggleMonth(0);  // a second click unmarks January
    EXPECT_EQ(c.fields().At("mon", 2).color, RunSimController::kMarked);
    ASSERT_TRUE(c.ExecuteRun());
    while (c.Wait(50)) {
    }
    const auto lines = TempLines("ecalc$.tmp");
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[0], "Run type  : 3");
    EXPECT_EQ(lines[2], "1st day   :  4 ");
    EXPECT_EQ(lines[3], "Run begin : 1");
    EXPECT_EQ(lines[4], "Run end   : 366");  // 2020 is a leap year
    EXPECT_EQ(lines[7], "Skip month:  3   7  ");
    EXPECT_EQ(c.fields().Text("Text1_2"), "2020");
    EXPECT_EQ(session_.model.ProjectData[kConYear], "2020");
    EXPECT_EQ(c.run().SkippedMonthCount, 2);
    EXPECT_EQ(c.run().SkippedMonthName[2], "Jul");
    EXPECT_EQ(c.run().RunDates[0], "1-Jan");
    EXPECT_EQ(session_.model.flags.RunDone, 1);
    EXPECT_TRUE(c.fields().Visible("Command3"));
    EXPECT_FALSE(c.fields().Visible("Command2"));
    EXPECT_NE(c.fields().Text("runstatus").find("Total time = "), std::string::npos);

    // The input report opens the results file with the reader's anchor and
    // the units line thirteen lines below it.
    const auto report = TempLines("ecalc$.out");
    auto at = std::find_if(report.begin(), report.end(), [](const std::string& l) {
        return l.size() >= 10 && l.compare(3, 7, "WEATHER") == 0;
    });
    ASSERT_NE(at, report.end());
    ASSERT_LT(at + 13, report.end());
    EXPECT_EQ((at + 13)->substr(10, 6), "SQ.FT.");
}

TEST_F(RunSimTest, SeedRepeatsOnlyWhenAsked) {
    Load("Small Office [two levels, I-P].inp");
    UseEngine("#!/bin/sh\nexit 0\n");
    std::vector<std::string> heads;
    for (int repeat : {1, 1, 0}) {
        RunSimController c = Controller();
        c.OpenRun();
        c.fields()["weatherseq"].value = repeat;
        ASSERT_TRUE(c.ExecuteRun());
        while (c.Wait(50)) {
        }
        heads.push_back(TempLines("ecalc$.inp").at(0));
    }
    EXPECT_EQ(heads[0], heads[1]);
    EXPECT_EQ(heads[0].substr(0, 22), "SOLVANE-2020 .83766422");
    EXPECT_EQ(heads[2].substr(0, 16), "SOLVANE-2020 .25");
}

TEST_F(RunSimTest, SiProjectSendsImperialToTheEngine) {
    Load("Primary School [SI].inp");
    UseEngine("#!/bin/sh\nexit 0\n");
    RunSimController c = Controller();
    c.OpenRun();
    EXPECT_EQ(c.fields().Text("Tlower"), "20");
    ASSERT_TRUE(c.ExecuteRun());
    while (c.Wait(50)) {
    }
    const auto inp = TempLines("ecalc$.inp");
    EXPECT_EQ(inp.at(0).substr(inp[0].size() - 2), "SI");
    // The project itself stays in SI; the engine's copy is in I-P.
    EXPECT_EQ(session_.model.session.Units, 2);
    const auto out = TempLines("ecalc$.out");
    const bool siLine = std::any_of(out.begin(), out.end(), [](const std::string& l) {
        return l.find("SQ.M. OF HORIZONTAL SURFACE") != std::string::npos;
    });
    EXPECT_TRUE(siLine);
}

TEST_F(RunSimTest, SiProjectReachesTheEngineWithItsOwnSizes) {
    // The engine's copy of an SI project is in I-P but for the receptacle
    // load and the building matrix; the engine's building has the zone's
    // true volume and receptacle power all the same.
    Load("Primary School [SI].inp");
    ASSERT_TRUE(WriteEngineInput(session_, prompt_, true, [] { return 0.5; }));
    const auto inp = ReadTextFile(root_ / "temp" / "ecalc$.inp");
    ASSERT_TRUE(inp);
    const fs::path work = root_ / "engine_work";
    fs::create_directories(work / "temp");
    fs::create_directories(work / "sketch");
    Session engine;
    engine.paths = ProgramPaths(work);
    ScriptedPrompt quiet;
    ASSERT_EQ(ReadProjectFile(engine, quiet, *inp, "ecalc$.inp", {}), ReadStatus::Read);
    const auto matrix = ReadTextFile(work / "sketch" / "bld_mtx.all").value_or("");
    const engine::ProjectRunInputs in = engine::TranslateProject(engine.model, 3, matrix);
    ASSERT_FALSE(in.building.zones.empty());
    const auto& zone = in.building.zones[0];
    const auto& f = session_.model.zones.ZoneData[1];
    ASSERT_EQ(f[2], "Classrooms South");
    const double area = NumVal(f[3]);  // sq.m.
    EXPECT_NEAR(zone.floorArea, area, 0.01 * area);
    EXPECT_NEAR(zone.volume, area * 3.5, 0.01 * area * 3.5);  // 3.5 m rooms
    EXPECT_NEAR(zone.gains.equipment, NumVal(f[15]) * area, 0.01 * NumVal(f[15]) * area);
    EXPECT_NEAR(zone.gains.lights, NumVal(f[13]) * area, 0.02 * NumVal(f[13]) * area);
}

TEST_F(RunSimTest, BadDatesAndMissingRecordedFileStopBeforeTheEngine) {
    Load("Small Office [two levels, I-P].inp");
    UseEngine("#!/bin/sh\ntouch started\nexit 0\n");
    const ProjectModel before = session_.model;
    RunSimController c = Controller();
    c.OpenRun();
    c.fields().At("Text1", 1).text = "31-Feb";
    EXPECT_FALSE(c.ExecuteRun());
    ASSERT_EQ(prompt_.asked.size(), 1u);
    EXPECT_EQ(prompt_.asked[0].title, "Error");
    EXPECT_EQ(session_.model.ProjectData[kConYear], before.ProjectData[kConYear]);
    EXPECT_EQ(session_.model.flags.RunDone, 0);
    EXPECT_TRUE(c.fields().Enabled("Command1"));

    c.fields().At("Text1", 1).text = "31-Dec";
    c.fields().At("weather", 1).value = 1;
    EXPECT_FALSE(c.ExecuteRun());
    EXPECT_EQ(prompt_.asked.back().title, "Weather data file");
    c.fields().At("Text1", 0).text = "";
    EXPECT_FALSE(c.ExecuteRun());
    EXPECT_EQ(prompt_.asked.back().title, "Simulation period");
    EXPECT_FALSE(fs::exists(root_ / "temp" / "started"));
}

TEST_F(RunSimTest, CancelEndsAHungEngineAndPutsEverythingBack) {
    Load("Small Office [two levels, I-P].inp");
    UseEngine("#!/bin/sh\ntrap '' TERM\nwhile :; do sleep 1; done\n");
    WriteFileAtomic(root_ / "temp" / "ecalc$.out", "earlier results\r\n");
    const std::string year = session_.model.ProjectData[kConYear];
    RunSimController c = Controller();
    c.OpenRun();
    c.fields().At("Text1", 2).text = "21";
    ASSERT_TRUE(c.ExecuteRun());
    EXPECT_TRUE(c.Wait(100));
    EXPECT_TRUE(c.Running());
    c.Cancel();  // the engine ignores the polite request: it is killed
    EXPECT_FALSE(c.Running());
    EXPECT_EQ(session_.model.ProjectData[kConYear], year);
    EXPECT_EQ(session_.model.flags.RunDone, 0);
    EXPECT_EQ(ReadTextFile(root_ / "temp" / "ecalc$.out"), "earlier results\r\n");
    EXPECT_TRUE(c.fields().Enabled("Command1"));
}

TEST_F(RunSimTest, BarFollowsTheDaysTheEngineReports) {
    Load("Small Office [two levels, I-P].inp");
    UseEngine(
        "#!/bin/sh\nsleep 0.3\nprintf '0 365\\r\\n' > Progress.txt\nsleep 0.3\n"
        "printf '183 365\\r\\n' > Progress.txt\nsleep 0.3\n"
        "printf 'garbage\\r\\n' > Progress.txt\nsleep 0.3\nexit 0\n");
    WriteFileAtomic(root_ / "temp" / "Progress.txt", "365 365\r\n");  // an earlier run's
    RunSimController c = Controller();
    c.OpenRun();
    ASSERT_TRUE(c.ExecuteRun());
    std::vector<int> seen;
    while (c.Wait(50)) seen.push_back(c.fields()["ProgressBar1"].value);
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front(), 0);  // the earlier run's record was removed
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_NE(std::find(seen.begin(), seen.end(), 183 * 100 / 365 * 95 / 100), seen.end());
    EXPECT_LT(seen.back(), 95);  // a record it cannot read does not move the bar
    EXPECT_TRUE(c.EngineCompleted());
}

TEST(EngineProgressTest, ReadsDaysDoneOfDays) {
    const fs::path root =
        fs::temp_directory_path() / ("solvane_progress_" + std::to_string(getpid()));
    fs::create_directories(root / "temp");
    const ProgramPaths paths(root);
    EXPECT_FALSE(EngineProgress(paths));
    for (const auto& [text, expected] :
         std::vector<std::pair<std::string, std::optional<int>>>{{"0 365\r\n", 0},
                                                                 {"73 365\r\n", 20},
                                                                 {"400 365", 100},
                                                                 {"12", std::nullopt},
                                                                 {"5 0", std::nullopt},
                                                                 {"-1 10", std::nullopt},
                                                                 {"", std::nullopt}}) {
        WriteFileAtomic(root / "temp" / "Progress.txt", text);
        EXPECT_EQ(EngineProgress(paths), expected) << text;
    }
    fs::remove_all(root);
}

TEST_F(RunSimTest, CancelMidwayThroughARealRun) {
    Load("Hotel [four storeys, I-P].inp");
    UseEngine();
    WriteFileAtomic(root_ / "temp" / "ecalc$.out", "earlier results\r\n");
    const ProjectModel before = session_.model;
    RunSimController c = Controller();
    c.OpenRun();
    c.fields().At("Text1", 2).text = "24";
    ASSERT_TRUE(c.ExecuteRun());
    // Cancel once the engine has told its first days.
    while (c.Wait(5) && c.fields()["ProgressBar1"].value == 0) {
    }
    ASSERT_TRUE(c.Running()) << "the run ended before it could be cancelled";
    c.Cancel();
    EXPECT_FALSE(c.Running());
    EXPECT_FALSE(c.EngineCompleted());
    EXPECT_EQ(session_.model.ProjectData, before.ProjectData);
    EXPECT_EQ(session_.model.climate.DesTemps, before.climate.DesTemps);
    EXPECT_EQ(session_.model.flags.RunDone, 0);
    EXPECT_EQ(ReadTextFile(root_ / "temp" / "ecalc$.out"), "earlier results\r\n");
    // The engine left its record of the stop and none of its reports.
    for (const char* name : {"sim$.out", "ecalc$.wth", "ecalc$.flt", "Progress.txt"})
        EXPECT_FALSE(fs::exists(root_ / "temp" / name)) << name;
    const auto monitor = ReadTextFile(root_ / "temp" / "Monitor.txt").value_or("");
    EXPECT_NE(monitor.find("STOPPED BEFORE IT COMPLETED"), std::string::npos) << monitor;
    EXPECT_TRUE(c.fields().Enabled("Command1"));
    EXPECT_FALSE(c.fields().Visible("ProgressBar1"));
}

TEST_F(RunSimTest, TimeLimitStopsTheEngine) {
    Load("Small Office [two levels, I-P].inp");
    UseEngine("#!/bin/sh\nwhile :; do sleep 1; done\n");
    RunSimController c = Controller(0.3);
    c.OpenRun();
    ASSERT_TRUE(c.ExecuteRun());
    int passes = 0;
    while (c.Wait(100)) ++passes;
    EXPECT_LT(passes, 10);
    EXPECT_FALSE(c.Running());
    EXPECT_EQ(prompt_.asked.back().title, "Simulation stopped");
    EXPECT_EQ(session_.model.flags.RunDone, 0);
}

TEST_F(RunSimTest, RealEngineAndReviewResults) {
    Load("Small Office [two levels, I-P].inp");
    UseEngine();
    RunSimController c = Controller();
    c.OpenRun();
    c.fields()["weatherseq"].value = 1;
    ASSERT_TRUE(c.ExecuteRun());
    while (c.Wait(200)) {
    }
    // The engine kept its record of the days: all of the year at the end.
    EXPECT_EQ(TempLines("Progress.txt"), std::vector<std::string>{"365 365"});
    EXPECT_EQ(c.fields()["ProgressBar1"].value, 100);
    ASSERT_TRUE(c.ReviewResults());
    EXPECT_EQ(session_.model.flags.OutputAvailable, 1);
    EXPECT_EQ(session_.model.flags.PendingAfterSave, 0);
    const auto monitor = TempLines("Monitor.txt");
    ASSERT_GE(monitor.size(), 5u);
    EXPECT_EQ(session_.model.ProjectData[kLocation], monitor[4].substr(1, 36));
    // The engine's report follows the input report in the results file.
    const auto out = ReadTextFile(root_ / "temp" / "ecalc$.out").value_or("");
    const auto weather = out.find("WEATHER INPUT DATA:");
    const auto roof = out.find("\r\nROOF");
    ASSERT_NE(weather, std::string::npos);
    ASSERT_NE(roof, std::string::npos);
    EXPECT_LT(weather, roof);
}

}  // namespace
}  // namespace solvane
