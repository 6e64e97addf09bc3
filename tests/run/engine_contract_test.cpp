#include "run/engine_contract.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "core/text_file.h"
#include "engine/control_file.h"
#include "run/engine_process.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

TEST(RunDates, FirstDayOfYearAndYearText) {
    EXPECT_EQ(FirstDayOfYear(1980), 3);
    EXPECT_EQ(FirstDayOfYear(2021), 6);
    EXPECT_EQ(FirstDayOfYear(2024), 2);  // a Monday
    EXPECT_EQ(FirstDayOfYear(1979), 2);  // a Monday as well
    EXPECT_EQ(RunYear("20"), 2020);
    EXPECT_EQ(RunYear("1999"), 1999);
}

TEST(RunDates, DayMonthTexts) {
    EXPECT_EQ(ParseRunDate("1-Jan", 2021), 1);
    EXPECT_EQ(ParseRunDate("31-Dec", 2020), 366);
    EXPECT_EQ(ParseRunDate("15-oct", 2021), 288);
    EXPECT_EQ(ParseRunDate("29-Feb", 2021), std::nullopt);
    EXPECT_EQ(ParseRunDate("29-Feb", 2024), 60);
    EXPECT_EQ(ParseRunDate("Oct-15", 2021), std::nullopt);
    EXPECT_EQ(ParseRunDate("32-Jan", 2021), std::nullopt);
}

TEST(ControlFile, LinesAsTheEngineReadsThem) {
    RunSettings s;
    s.RunType = 3;
    s.WeatherYear = "20";
    s.SkipMonth[3] = s.SkipMonth[7] = true;
    s.ComfortLower = "68";
    s.ComfortUpper = "79";
    const auto text = ControlFileText(s, 2);
    ASSERT_TRUE(text);
    const auto lines = SplitLines(*text);
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[0], "Run type  : 3");
    EXPECT_EQ(lines[1], "Wthr type :  0");
    EXPECT_EQ(lines[2], "1st day   :  4 ");  // 2020 began on a Wednesday
    EXPECT_EQ(lines[4], "Run end   : 366");
    EXPECT_EQ(lines[7], "Skip month:  3   7  ");
    EXPECT_EQ(lines[8], "Comfort   :  68        79 ");  // the upper limit at column 23

    const engine::RunControl c = engine::ReadControlFile(*text, "ecalc$.tmp");
    EXPECT_EQ(c.runType, 3);
    EXPECT_EQ(c.weatherType, 0);
    EXPECT_EQ(c.firstDayOfYear, 4);
    EXPECT_EQ(c.beginDay, 1);
    EXPECT_EQ(c.endDay, 366);
    EXPECT_EQ(c.codeNum, 2);
    EXPECT_TRUE(c.skipMonth[2]);
    EXPECT_TRUE(c.skipMonth[6]);
    EXPECT_FALSE(c.skipMonth[0]);
    EXPECT_DOUBLE_EQ(c.comfortUpper, 79);
}

TEST(ControlFile, RecordedWeatherAndBadDates) {
    RunSettings s;
    s.WeatherType = 5;
    s.WeatherYear = "2021";
    s.ComfortLower = "20";
    s.ComfortUpper = "27";
    const auto lines = SplitLines(*ControlFileText(s, 1));
    EXPECT_EQ(lines[1], "Wthr type : 5  1 ");  // the next 14-column print zone
    s.EndDate = "31-Feb";
    EXPECT_FALSE(ControlFileText(s, 1));
}

TEST(EngineHead, SeedColumnAndUnitsWord) {
    ProjectModel m;
    m.session.WeatherSeed = ".83766422";
    m.session.InputFileVersion = 4;
    m.session.Units = 2;
    EXPECT_EQ(EngineHeadLine(m), "SOLVANE-2020 .83766422  4  SI");
    const engine::EngineHead head = engine::ReadEngineHeadLine(EngineHeadLine(m));
    EXPECT_EQ(head.weatherSeed, ".83766422");
    EXPECT_TRUE(head.si);
}

TEST(EngineProcess, AMissingEngineIsReportedAndAFinishedOneGivesItsStatus) {
    const fs::path root = fs::temp_directory_path() / ("solvane_run_" + std::to_string(::getpid()));
    fs::create_directories(root / "temp");
    std::string error;
    EngineProcess none = StartEngine(ProgramPaths(root), error);
    EXPECT_EQ(none.pid, -1);
    EXPECT_NE(error.find("Solv2020"), std::string::npos);

    // A stand-in engine that checks it was started in temp and ends with 3.
    const fs::path fake = root / "Solv2020";
    WriteFileAtomic(fake, "#!/bin/sh\n[ \"$(basename \"$PWD\")\" = temp ] && exit 3\nexit 1\n");
    fs::permissions(fake, fs::perms::owner_all);
    EngineProcess engine = StartEngine(ProgramPaths(root), error);
    ASSERT_GT(engine.pid, 0) << error;
    int polls = 0;
    while (IsEngineRunning(engine, 1000)) ++polls;
    EXPECT_LT(polls, 10);
    EXPECT_EQ(engine.exitStatus, 3);
    EXPECT_FALSE(IsEngineRunning(engine, 10));
    fs::remove_all(root);
}

// The watchdog: an engine that will not stop when asked is ended outright,
// and one that does stop is given its grace. Outputs of an earlier run go.
TEST(EngineProcess, StopEndsAnEngineThatIgnoresTheRequest) {
    const fs::path root =
        fs::temp_directory_path() / ("solvane_stop_" + std::to_string(::getpid()));
    fs::create_directories(root / "temp");
    const fs::path fake = root / "Solv2020";
    std::string error;
    for (const bool stubborn : {true, false}) {
        // No child processes: one left behind would hold the test's output open.
        WriteFileAtomic(fake, stubborn ? "#!/bin/sh\ntrap '' TERM\nwhile :; do :; done\n"
                                       : "#!/bin/sh\nexec sleep 30\n");
        fs::permissions(fake, fs::perms::owner_all);
        EngineProcess engine = StartEngine(ProgramPaths(root), error);
        ASSERT_GT(engine.pid, 0) << error;
        EXPECT_TRUE(IsEngineRunning(engine, 200));
        const auto start = std::chrono::steady_clock::now();
        StopEngine(engine, 300);
        EXPECT_TRUE(engine.finished);
        EXPECT_EQ(engine.exitStatus, -1);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    }

    for (const char* name : {"Monitor.txt", "sim$.out", "ecalc$.wth", "ecalc$.flt", "ecalc$.hry"})
        WriteFileAtomic(root / "temp" / name, "an earlier run\r\n");
    WriteFileAtomic(root / "temp" / "ecalc$.inp", "kept\r\n");
    DeleteEngineOutputs(ProgramPaths(root));
    EXPECT_EQ(std::distance(fs::directory_iterator(root / "temp"), fs::directory_iterator()), 1);
    EXPECT_TRUE(fs::exists(root / "temp" / "ecalc$.inp"));
    fs::remove_all(root);
}

}  // namespace
}  // namespace solvane
