// The reader: its fixed order, the quirks it keeps, what it stages on disk
// and how a damaged file ends.

#include <gtest/gtest.h>

#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "projectfile/project_file.h"
#include "test_project.h"
#include "ui/scripted_prompt.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

using test::FindLine;
using test::LineAt;

// Replaces line `index` (0-based) of a file text.
std::string WithLine(const std::string& text, int index, const std::string& line) {
    auto lines = SplitLines(text);
    lines[index] = line;
    std::string out;
    for (const auto& l : lines) out += l + "\r\n";
    return out;
}
std::string WithoutLine(const std::string& text, int index) {
    auto lines = SplitLines(text);
    lines.erase(lines.begin() + index);
    std::string out;
    for (const auto& l : lines) out += l + "\r\n";
    return out;
}

class ReaderTest : public ::testing::Test {
  protected:
    void SetUp() override {
        folder_ = std::make_unique<test::ProgramFolder>(
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        source_.paths = target_.paths = ProgramPaths(folder_->Root());
        test::BuildOfficeProject(source_);
        file_ = test::WholeFile(source_);
    }
    // Reads `text` and returns the prompts shown.
    ReadStatus Read(const std::string& text, ScriptedPrompt& prompt,
                    const ProjectFileHooks& hooks = test::TitleHooks()) {
        return ReadProjectFile(target_, prompt, text, "office.inp", hooks);
    }
    std::unique_ptr<test::ProgramFolder> folder_;
    Session source_, target_;
    std::string file_;
};

TEST_F(ReaderTest, ProjectBlockAndFlags) {
    target_.model.flags.InputFileSaved = 1;
    target_.model.flags.OutputAvailable = 1;
    target_.model.session.InputFileVersion = 3;
    test::ReadInto(target_, WithLine(file_, 0, "SOLVANE   .5123     9  SI"));
    const ProjectModel& m = target_.model;
    EXPECT_EQ(m.session.WeatherSeed, ".5123     ");
    EXPECT_EQ(m.session.InputFileVersion, 4);
    EXPECT_EQ(m.session.Units, 2);
    EXPECT_EQ(m.session.UnitsIndex, 1);
    EXPECT_EQ(m.session.BuildingType, 21);
    EXPECT_EQ(m.session.CodeNum, 2);
    EXPECT_EQ(m.session.CodeName, "90.1-2019 (Latest Version)");
    EXPECT_EQ(m.ProjectData[kCodeNameCopy], m.session.CodeName);
    // The location is read as two items; the names they go to are the other
    // way round, which the title shows.
    EXPECT_EQ(m.climate.FileState, "Leadville Lake County AP");
    EXPECT_EQ(m.climate.FileCity, "Colorado #");
    EXPECT_EQ(m.ProjectData[kLocation], "Leadville Lake County AP, Colorado #");
    EXPECT_EQ(m.session.ProjectTitle, "Test Office, Leadville Lake , Colorado #");
    EXPECT_EQ(m.BuildingOrientation, "15");
    EXPECT_FLOAT_EQ(m.BuildingFloorArea, 4800);
    EXPECT_FLOAT_EQ(m.BuildingFloorAreaEntered, 4800);
    EXPECT_EQ(m.session.ClimateZone, "7");
    EXPECT_FLOAT_EQ(m.climate.HeatingDegreeDays, 10243);
    EXPECT_EQ(m.climate.HDDText, "10243");
    EXPECT_EQ(m.climate.CDDText, "0");
    EXPECT_FLOAT_EQ(m.climate.Latitude, 39.217f);
    EXPECT_EQ(m.climate.DesTempsPresent, 1);
    EXPECT_EQ(m.economics.NumDemandRates, 2);
    EXPECT_EQ(m.economics.DemandRateCost[2], "6.25");

    for (int i : {1, 2, 3, 4, 6}) EXPECT_EQ(m.flags.TaskDone[i], 1);
    EXPECT_EQ(m.flags.TaskDone[5], 0);
    EXPECT_EQ(m.flags.ProjectFromFile, 1);
    EXPECT_EQ(m.flags.InputFileSaved, 0);
    EXPECT_EQ(m.flags.OutputAvailable, 0);
    EXPECT_EQ(m.flags.ZonesDescribed, 1);
    EXPECT_EQ(m.profiles.ProfileTypeEdited[7], 1);
    EXPECT_EQ(target_.mainmenu["Label13"].text, "Project Units = SI");
}

TEST_F(ReaderTest, ZonesSurfacesAndStagingFiles) {
    test::ReadInto(target_, file_);
    const ProjectModel& m = target_.model;
    ASSERT_EQ(m.zones.NumZones, 3);
    EXPECT_EQ(m.zones.ZoneNumber[3], "2-1");
    EXPECT_EQ(m.zones.ZoneName[2], "Conference");
    EXPECT_FLOAT_EQ(m.zones.ZoneFloorArea[3], 2400);
    EXPECT_FLOAT_EQ(m.zones.ZoneAreaPerPerson[1], 100);
    EXPECT_EQ(m.zones.ZoneSurfaceCount[1], 5);
    EXPECT_EQ(m.zones.ZoneSurfaceCount[2], 0);
    EXPECT_EQ(m.zones.LastHVACType, 4);
    EXPECT_EQ(m.zones.ZoneDaylight[3], " Yes");
    EXPECT_EQ(m.surfaces.SurfShade[1][3], "N0. N0. T.5");
    EXPECT_FLOAT_EQ(m.surfaces.SurfWindowArea[3][3], 95.5f);
    EXPECT_EQ(m.surfaces.SurfExposure[1][5], 9);
    EXPECT_EQ(m.sketch.TopFloor, 2);

    // Each zone's surfaces are staged one value a line, closed by "end".
    const auto staged = ReadTextFile(folder_->Root() / "temp" / "temp1-1.zon");
    ASSERT_TRUE(staged);
    const auto lines = SplitLines(*staged);
    ASSERT_EQ(lines.size(), 5u * 14 + 1);
    EXPECT_EQ(lines[0], " 1 ");
    EXPECT_EQ(lines[4], "N0. N0. N0.");
    EXPECT_EQ(lines.back(), "end");
    EXPECT_EQ(*ReadTextFile(folder_->Root() / "temp" / "temp1-2.zon"), "end\r\n");
    EXPECT_EQ(*ReadTextFile(folder_->Root() / "sketch" / "bld_mtx.all"), test::OfficeMatrix());
}

TEST_F(ReaderTest, WindowSizerTakesRatiosAndOverhangsFromSurfaces) {
    test::ReadInto(target_, file_);
    const WindowSizerState& s = target_.model.sizer;
    // The last surface of each direction wins: north 95.5/600, east 80/400,
    // south 210/600, west 60/400, roof 72/2400.
    EXPECT_FLOAT_EQ(s.WindowFraction[0], 0.16f);
    EXPECT_FLOAT_EQ(s.WindowFraction[1], 0.2f);
    EXPECT_FLOAT_EQ(s.WindowFraction[2], 0.35f);
    EXPECT_FLOAT_EQ(s.WindowFraction[3], 0.15f);
    EXPECT_FLOAT_EQ(s.WindowFraction[4], 0.03f);
    EXPECT_FLOAT_EQ(s.WindowPercent[2], 35.0f);
    // The south overhangs: ".5" on the first floor, ".25" above it.
    EXPECT_FLOAT_EQ(s.PFFirst[2], 0.5f);
    EXPECT_FLOAT_EQ(s.PFUpper[2], 0.25f);
    EXPECT_FLOAT_EQ(s.PFFirst[0], 0.0f);
    EXPECT_EQ(s.WindowSizerApplied, 1);
}

TEST_F(ReaderTest, ZoneNumbersWithoutHyphen) {
    const int zones = FindLine(file_, "ZONES");
    std::string f = WithLine(file_, zones + 1, "Zone No.  312");
    const int second = FindLine(f, "Zone No.  1-2");
    f = WithLine(f, second, "Zone No.  11");
    const int third = FindLine(f, "Zone No.  2-1");
    f = WithLine(f, third, "Zone No.  7");
    test::ReadInto(target_, f);
    EXPECT_EQ(target_.model.zones.ZoneNumber[1], "3-12");
    EXPECT_EQ(target_.model.zones.ZoneNumber[2], "1-1");
    EXPECT_EQ(target_.model.zones.ZoneNumber[3], "-7");
    EXPECT_EQ(target_.model.zones.ZoneData[3][1], "-7");
    EXPECT_EQ(target_.model.sketch.TopFloor, 0);
    EXPECT_TRUE(fs::exists(folder_->Root() / "temp" / "temp3-12.zon"));
}

TEST_F(ReaderTest, OptionalLinesAndClimateZoneLetter) {
    std::string f = WithLine(file_, 14, "WEATHER   CLzone=  4 A");
    f = WithoutLine(f, FindLine(f, "DemChgRate 100 8.5 500 6.25"));
    f = WithoutLine(f, 26);  // the DesTemps line
    test::ReadInto(target_, f);
    const ProjectModel& m = target_.model;
    EXPECT_EQ(m.session.ClimateZone, "4");
    EXPECT_EQ(m.ProjectData[kClimateZoneCopy], "4");
    EXPECT_EQ(m.climate.DesTempsPresent, 0);
    EXPECT_TRUE(m.climate.DesTemps[1].empty());
    EXPECT_EQ(m.economics.EconomicsData[10], "3");
    EXPECT_EQ(m.economics.NumDemandRates, 0);
    EXPECT_EQ(m.walls.WallDescription[5], "Slab on grade, unheated");
    EXPECT_EQ(m.zones.NumZones, 3);
}

TEST_F(ReaderTest, DesignTemperaturesInTheFileAreKept) {
    const std::string f = WithLine(file_, 26, "DesTemps: 99.5 77 -2 ");
    test::ReadInto(target_, f);
    EXPECT_EQ(target_.model.climate.DesTemps[1], "99.5");
    const std::string written = test::WholeFile(target_);
    EXPECT_EQ(LineAt(written, 26), "DesTemps: 99.5 77 -2 ");

    // Without the line they are computed from the climate block when written.
    Session fresh;
    fresh.paths = target_.paths;
    test::ReadInto(fresh, WithoutLine(file_, 26));
    EXPECT_EQ(LineAt(test::WholeFile(fresh), 26), "DesTemps: 80.9 51.4 -11.3 ");
}

TEST_F(ReaderTest, CatalogEntriesGoToTheIndexOfTheirId) {
    test::ReadInto(target_, file_);
    const WallCatalog& w = target_.model.walls;
    EXPECT_EQ(w.WallUsed[5], 1);
    EXPECT_EQ(w.WallUsed[3], 0);
    EXPECT_EQ(w.WallId[5], "5");
    EXPECT_EQ(w.WallUFactor[2], ".032");
    EXPECT_EQ(target_.model.windows.WindowUsed[3], 1);
    EXPECT_EQ(target_.model.windows.WindowDLTrans[3], ".55");
}

TEST_F(ReaderTest, EnvelopeDefaultsComeFirstAndTheReadEntriesReplaceThem) {
    ProjectFileHooks hooks = test::TitleHooks();
    int calls = 0;
    hooks.loadEnvelopeDefaults = [&](Session& s, Prompt&) {
        ++calls;
        for (int i = 1; i <= 22; ++i) s.model.walls.WallUsed[i] = 1;
        s.model.walls.WallDescription[4] = "default wall";
    };
    ScriptedPrompt prompt;
    ASSERT_EQ(Read(file_, prompt, hooks), ReadStatus::Read);
    EXPECT_EQ(calls, 1);
    const WallCatalog& w = target_.model.walls;
    EXPECT_EQ(w.WallUsed[4], 0);  // cleared 1..20
    EXPECT_EQ(w.WallDescription[4], "default wall");
    EXPECT_EQ(w.WallUsed[21], 1);  // beyond 20, kept
}

TEST_F(ReaderTest, DefaultAreaPerPersonFromTheBuildingType) {
    ProjectFileHooks hooks = test::TitleHooks();
    int askedType = 0;
    hooks.buildingTypeOccupancy = [&](Session&, int type) {
        askedType = type;
        return 5.0;  // people per 1000 sq.ft
    };
    source_.model.zones.ZoneData[2][5] = "0";
    const std::string f = test::WholeFile(source_);
    ScriptedPrompt prompt;
    ASSERT_EQ(Read(f, prompt, hooks), ReadStatus::Read);
    EXPECT_EQ(askedType, 21);
    EXPECT_FLOAT_EQ(target_.model.zones.DefaultAreaPerPerson, 200);
    EXPECT_FLOAT_EQ(target_.model.zones.ZoneAreaPerPerson[2], 200);

    // In SI: 200 x 0.0929 = 18.58, rounded to 19.
    Session si;
    si.paths = target_.paths;
    ScriptedPrompt prompt2;
    ASSERT_EQ(
        ReadProjectFile(si, prompt2, WithLine(f, 0, "SOLVANE   .8376642   4  SI"), "x.inp", hooks),
        ReadStatus::Read);
    EXPECT_FLOAT_EQ(si.model.zones.DefaultAreaPerPerson, 19);
}

// The reader takes at most twelve groups of a type, so the closing "99" of
// a type with all twelve is taken for the next title line.
TEST_F(ReaderTest, TwelveGroupsPutTheReaderOutOfStep) {
    // In the last type the search for "ZONES" brings the reader back in step.
    ProfileTable& heat = source_.model.profiles.Types[kHeatStat];
    for (int g = 1; g <= 12; ++g) {
        heat.GroupNum[g] = std::to_string(g);
        for (int k = 1; k <= 3; ++k) heat.Profile[g][k] = heat.Profile[1][k];
    }
    test::ReadInto(target_, test::WholeFile(source_));
    EXPECT_EQ(target_.model.profiles.Types[kHeatStat].GroupNum[12], "12");
    EXPECT_EQ(target_.model.zones.NumZones, 3);
    EXPECT_EQ(target_.model.zones.ZoneName[3], "Upper Office");

    // In the first type the next title is taken for a group, the lines after
    // it go on out of step, and here the "ZONES" line itself is dropped as a
    // title: the read runs off the end of the file and is reported.
    ProfileTable& occ = source_.model.profiles.Types[kOccupancy];
    for (int g = 1; g <= 12; ++g) {
        occ.GroupNum[g] = std::to_string(g);
        for (int k = 1; k <= 3; ++k) occ.Profile[g][k] = occ.Profile[1][k];
    }
    Session other;
    other.paths = target_.paths;
    ScriptedPrompt prompt;
    EXPECT_EQ(
        ReadProjectFile(other, prompt, test::WholeFile(source_), "office.inp", test::TitleHooks()),
        ReadStatus::Damaged);
    EXPECT_EQ(other.model.profiles.Types[kHotWater].GroupNum[0], "0");
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_NE(prompt.asked[0].text.find("Input past end of file"), std::string::npos);
}

TEST_F(ReaderTest, MoreThanTwentyCatalogEntriesAreWrittenButNotAllRead) {
    WallCatalog& w = source_.model.walls;
    for (int i = 1; i <= 26; ++i) {
        w.WallUsed[i] = 1;
        w.WallId[i] = std::to_string(i);
        w.WallDescription[i] = "Wall " + std::to_string(i);
    }
    const std::string f = test::WholeFile(source_);
    EXPECT_NE(FindLine(f, "ID. #     26"), -1);
    ScriptedPrompt prompt;
    Read(f, prompt);
    EXPECT_EQ(target_.model.walls.WallDescription[20], "Wall 20");
    EXPECT_EQ(target_.model.walls.WallUsed[21], 0);
}

// A damaged file never crashes: the "Surprise" prompt names the error, and
// the caller is told the model is incomplete.
TEST_F(ReaderTest, DamagedFilesGiveTheSurprisePrompt) {
    const int zones = FindLine(file_, "ZONES");
    const int walls = FindLine(file_, "WALL AND ROOF PROPERTIES");
    const struct {
        std::string text;
        std::string error;
    } cases[] = {
        {file_.substr(0, file_.find("ECONOMICS")), "Input past end of file"},
        {WithLine(file_, 1, "Bld. Type Office xx"), "Type mismatch"},
        {WithLine(file_, 13, "Code Num   7 "), "line 14: Code Num \"7\": the energy code must be"},
        {WithLine(file_, walls + 1, "ID. #     51"), "Subscript out of range"},
        {WithLine(file_, zones + 1, "Zone No.  "), "Invalid procedure call or argument"},
        {WithLine(file_, zones + 1, "Zone No.  1/1"), "Bad file name or number"},
        {WithLine(file_, zones + 1, "Zone No.  99999-1"), "Overflow"},
        {file_.substr(0, file_.find("Grnd Refl", file_.find("ZONES"))), "Input past end of file"},
        {"", "Input past end of file"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.error);
        Session s;
        s.paths = target_.paths;
        ScriptedPrompt prompt;
        EXPECT_EQ(ReadProjectFile(s, prompt, c.text, "office.inp", test::TitleHooks()),
                  ReadStatus::Damaged);
        ASSERT_EQ(prompt.asked.size(), 1u);
        EXPECT_EQ(prompt.asked[0].title, "Surprise");
        EXPECT_EQ(prompt.asked[0].icon, Icon::Exclamation);
        EXPECT_NE(prompt.asked[0].text.find(c.error), std::string::npos) << prompt.asked[0].text;
        EXPECT_NE(prompt.asked[0].text.find("office.inp"), std::string::npos);
        EXPECT_NE(prompt.asked[0].text.find("Error in Retrieval of Input"), std::string::npos);
    }
}

// A value that cannot stand is named at its own line with the field and the
// reason, not at the line the reader had reached when it was used.
TEST_F(ReaderTest, WrongValuesAreNamedAtTheirOwnLine) {
    const int weather = 14, desTemps = 26;  // 0-based, as the layout has them
    const struct {
        std::string text;
        std::string where;
    } cases[] = {
        {WithLine(file_, 1, "Bld. Type Office 9999"),
         "office.inp, line 2: Bld. Type \"Office 9999\": the building type 99 is not one of 1 to "
         "40"},
        {WithLine(file_, 1, "Bld. Type Office 0"), "office.inp, line 2: Bld. Type"},
        {WithLine(file_, 13, "Code Num   77 "),
         "office.inp, line 14: Code Num \"77\": the energy code must be 0 to 3"},
        {WithLine(file_, 13, "Code Num   1e99 "), "office.inp, line 14: Code Num"},
        {WithLine(file_, weather, "WEATHER   CLzone=  99"),
         "office.inp, line " + std::to_string(weather + 1) +
             ": CLzone= \"99\": the climate zone must be 1 to 8"},
        {WithLine(file_, 0, "SOLVANE   .8376642   4  XX"),
         "office.inp, line 1: the units word \"XX\""},
        {WithLine(file_, desTemps, "DesTemps: x y z "),
         "office.inp, line " + std::to_string(desTemps + 1) + ": DesTemps: \"x\""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.where);
        Session s;
        s.paths = target_.paths;
        ScriptedPrompt prompt;
        EXPECT_EQ(ReadProjectFile(s, prompt, c.text, "office.inp", test::TitleHooks()),
                  ReadStatus::Damaged);
        ASSERT_EQ(prompt.asked.size(), 1u);
        EXPECT_NE(prompt.asked[0].text.find(c.where), std::string::npos) << prompt.asked[0].text;
    }
}

// A staging file that cannot be written is named with the system's reason.
TEST_F(ReaderTest, AStagingFileThatCannotBeWrittenIsNamed) {
    fs::remove_all(folder_->Root() / "temp");
    WriteFileAtomic(folder_->Root() / "temp", "a file where the folder should be");
    ScriptedPrompt prompt;
    EXPECT_EQ(Read(file_, prompt), ReadStatus::Damaged);
    ASSERT_EQ(prompt.asked.size(), 1u);
    EXPECT_NE(prompt.asked[0].text.find("temp1-1.zon could not be written: Not a directory"),
              std::string::npos)
        << prompt.asked[0].text;
}

TEST_F(ReaderTest, ReadHeadLineTakesSeedAndVersion) {
    const fs::path path = folder_->Root() / "head.inp";
    ASSERT_TRUE(WriteFileAtomic(path, "SOLVANE   .1234567   5  IP\r\nBld. Type x 01\r\n"));
    ProjectModel m;
    m.session.InputFileName = path.string();
    ASSERT_TRUE(ReadHeadLine(m));
    EXPECT_EQ(m.session.WeatherSeed, ".1234567  ");
    EXPECT_EQ(m.session.InputFileVersion, 5);
    m.session.InputFileName = (folder_->Root() / "missing.inp").string();
    EXPECT_FALSE(ReadHeadLine(m));
}

}  // namespace
}  // namespace solvane
