// Write -> read -> write gives the same bytes, and the file has the fixed
// layout line for line.

#include <gtest/gtest.h>

#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "projectfile/project_file.h"
#include "test_project.h"

namespace fs = std::filesystem;

namespace solvane {
namespace {

using test::FindLine;
using test::LineAt;

class RoundTripTest : public ::testing::Test {
  protected:
    void SetUp() override {
        folder_ = std::make_unique<test::ProgramFolder>(
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        session_.paths = ProgramPaths(folder_->Root());
        reread_.paths = session_.paths;
    }
    std::unique_ptr<test::ProgramFolder> folder_;
    Session session_, reread_;
};

TEST_F(RoundTripTest, IpProjectWritesReadsAndWritesTheSameBytes) {
    test::BuildOfficeProject(session_);
    const std::string first = test::WholeFile(session_);
    test::ReadInto(reread_, first);
    EXPECT_EQ(test::WholeFile(reread_), first);
}

TEST_F(RoundTripTest, SiProjectWritesReadsAndWritesTheSameBytes) {
    test::BuildOfficeProject(session_);
    LineWriter si;
    si.Line(HeadLine(session_.model, "SI"));
    WriteProjectFileToSI(session_, si);
    test::ReadInto(reread_, si.Str());
    ASSERT_EQ(reread_.model.session.Units, 2);
    const std::string second = test::WholeFile(reread_);
    EXPECT_EQ(second, si.Str());

    Session third;
    third.paths = session_.paths;
    test::ReadInto(third, second);
    EXPECT_EQ(test::WholeFile(third), second);
}

TEST_F(RoundTripTest, FileHasTheFixedLayout) {
    test::BuildOfficeProject(session_);
    const std::string f = test::WholeFile(session_);
    EXPECT_EQ(LineAt(f, 0), "SOLVANE   .8376642   4  IP");
    EXPECT_EQ(LineAt(f, 1), "Bld. Type Small Office   21");
    EXPECT_EQ(LineAt(f, 4), "Location  Leadville Lake County AP, Colorado #");
    EXPECT_EQ(LineAt(f, 12), "An Hldays 10");
    EXPECT_EQ(LineAt(f, 13), "Code Num   2 ");
    EXPECT_EQ(LineAt(f, 14), "WEATHER   CLzone=  7");
    EXPECT_EQ(LineAt(f, 18),
              "DB Ave:     19.3  19.2  29.4  38.4  42.9    52  56.4  54.9  48.7  "
              "36.6  25.7  18.7");
    EXPECT_EQ(LineAt(f, 26), "DesTemps: 80.9 51.4 -11.3 ");
    EXPECT_EQ(LineAt(f, 27), "ECONOMICS");
    EXPECT_EQ(LineAt(f, 33), "Elec.Cost 12.5");
    EXPECT_EQ(LineAt(f, 39), "DemCharge  Y");
    EXPECT_EQ(LineAt(f, 40), "DemChgRate 100 8.5 500 6.25");
    EXPECT_EQ(LineAt(f, 41), "WALL AND ROOF PROPERTIES");
    EXPECT_EQ(LineAt(f, 42), "ID. #     1");
    EXPECT_EQ(LineAt(f, 45), "Solar Abs .7");
    const int windows = FindLine(f, "WINDOW PROPERTIES");
    EXPECT_EQ(windows, 42 + 3 * 7 + 1);
    EXPECT_EQ(LineAt(f, windows - 1), "9999");
    EXPECT_EQ(LineAt(f, windows + 4), "S.H.G.C.  .38");

    const int profiles = FindLine(f, "WINDOW PROPERTIES") + 2 * 7 + 2;
    EXPECT_EQ(LineAt(f, profiles),
              "PROFILES    1a  2a  3a  4a  5a  6a  7a  8a  9a 10a 11a 12N  1p  2p  3p  4p  5p  "
              "6p  7p  8p  9p 10p 11p 12M");
    EXPECT_EQ(LineAt(f, profiles + 1), "Occupancy (% of peak occupants)");
    EXPECT_EQ(LineAt(f, profiles + 2), "1  \"Office\"");
    EXPECT_EQ(LineAt(f, profiles + 3),
              "\"M-F\"        5   5   5   5   5   5   5   5  91  91  91  91  91  91  91  91  91  "
              "91   5   5   5   5   5   5");
    EXPECT_EQ(LineAt(f, profiles + 6), "4  \"Hospital / 24-hour care\"");
    EXPECT_EQ(LineAt(f, profiles + 10), "99");

    const int zones = FindLine(f, "ZONES");
    ASSERT_GT(zones, 0);
    EXPECT_EQ(LineAt(f, zones + 1), "Zone No.  1-1");
    EXPECT_EQ(LineAt(f, zones + 9), "OA CFM    CP20");
    EXPECT_EQ(LineAt(f, zones + 11), "Cost/sqft 1.5");
    EXPECT_EQ(LineAt(f, zones + 14), "Receptacle1.5");
    EXPECT_EQ(LineAt(f, zones + 22), "CFM/sqft. .1");
    EXPECT_EQ(LineAt(f, zones + 32), "Maint Cost500");
    EXPECT_EQ(LineAt(f, zones + 33), "Wall ID.   1 ");
    EXPECT_EQ(LineAt(f, zones + 34), "Wall Area  400 ");
    EXPECT_EQ(LineAt(f, zones + 37), "Ext. Shd. N0. N0. N0.");
    EXPECT_EQ(LineAt(f, zones + 43), "DiffTrans  .8 ");
    EXPECT_EQ(LineAt(f, zones + 33 + 5 * 14), "9999");
    // The conference room has no surfaces: its zone lines and a single "9999".
    EXPECT_EQ(LineAt(f, zones + 33 + 5 * 14 + 1), "Zone No.  1-2");
    EXPECT_EQ(LineAt(f, zones + 33 + 5 * 14 + 33), "9999");

    const int matrix = FindLine(f, "BUILDING MATRIX");
    EXPECT_EQ(LineAt(f, matrix + 1), "Grid Size   :2");
    EXPECT_EQ(static_cast<int>(SplitLines(f).size()), matrix + 1 + 2 * 91);
    // Every line ends in CR LF.
    std::size_t crlf = 0, lf = 0;
    for (std::size_t i = 0; i < f.size(); ++i)
        if (f[i] == '\n') ++lf, crlf += i > 0 && f[i - 1] == '\r';
    EXPECT_EQ(lf, crlf);
}

TEST_F(RoundTripTest, SiLabelsFollowTheProjectUnits) {
    test::BuildOfficeProject(session_);
    session_.model.session.Units = 2;
    const std::string f = test::WholeFile(session_);
    EXPECT_EQ(LineAt(f, 0).substr(24), "SI");
    const int zones = FindLine(f, "ZONES");
    EXPECT_EQ(LineAt(f, zones + 9), "OA lit/s  CP20");
    EXPECT_EQ(LineAt(f, zones + 11), "Cost/sq.m 1.5");
    EXPECT_EQ(LineAt(f, zones + 12), "Watt/sq.m .82");
    EXPECT_EQ(LineAt(f, zones + 22), "l/s/sq.m. .1");
}

TEST_F(RoundTripTest, WriterRulesForBlankAndMissingValues) {
    test::BuildOfficeProject(session_);
    ProjectModel& m = session_.model;
    m.ProjectData[6].clear();
    m.economics.EconomicsData[3].clear();
    m.economics.NumDemandRates = 0;
    m.zones.ZoneData[1][9] = "15";  // no prefix: counts per person
    m.walls.WallUsed[2] = 0;        // not used: not written, whatever it holds
    m.flags.DaylightingUsed = 0;
    const std::string f = test::WholeFile(session_);

    EXPECT_EQ(LineAt(f, 7), "Con. Year 0.0");
    EXPECT_EQ(FindLine(f, "Disc.Rate 0.0"), 31);
    EXPECT_EQ(LineAt(f, 39), "DemCharge  N");
    EXPECT_EQ(LineAt(f, 40), "WALL AND ROOF PROPERTIES");
    EXPECT_EQ(FindLine(f, "Descript. Roof, insulation above deck R-30"), -1);
    EXPECT_EQ(m.zones.ZoneData[1][9], "CP15");
    EXPECT_NE(FindLine(f, "OA CFM    CP15"), -1);
    EXPECT_EQ(m.flags.DaylightingUsed, 1);

    // Read back: the blank comes back as "0.0", the demand charge as " N".
    test::ReadInto(reread_, f);
    EXPECT_EQ(reread_.model.ProjectData[6], "0.0");
    EXPECT_EQ(reread_.model.economics.DemandCharge, " N");
    EXPECT_EQ(reread_.model.economics.NumDemandRates, 0);
    EXPECT_EQ(reread_.model.walls.WallUsed[2], 0);
}

TEST_F(RoundTripTest, MissingMatrixFileIsAWriteError) {
    test::BuildOfficeProject(session_);
    fs::remove(folder_->Root() / "sketch" / "bld_mtx.all");
    LineWriter out;
    EXPECT_THROW(WriteProjectFile(session_, out), WriteError);
}

TEST_F(RoundTripTest, SampleProjectsReadAndWriteTheSameBytes) {
    const fs::path samples = fs::path(SOLVANE_SOURCE_DIR) / "data" / "sample";
    int count = 0;
    for (const auto& entry : fs::directory_iterator(samples)) {
        if (entry.path().extension() != ".inp") continue;
        ++count;
        SCOPED_TRACE(entry.path().filename().string());
        const auto text = ReadTextFile(entry.path());
        ASSERT_TRUE(text);
        Session s;
        s.paths = session_.paths;
        test::ReadInto(s, *text);
        EXPECT_GT(s.model.zones.NumZones, 0);
        test::ExpectWrittenAsRead(test::WholeFile(s), *text);
    }
    EXPECT_GE(count, 6);
}

}  // namespace
}  // namespace solvane
