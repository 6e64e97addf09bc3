// Saving in the other unit system: each converted field against values
// worked out by hand from the unit factors, and the model left as it was.

#include <gtest/gtest.h>

#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "projectfile/project_file.h"
#include "test_project.h"

namespace solvane {
namespace {

using test::FindLine;
using test::LineAt;

class UnitConversionTest : public ::testing::Test {
  protected:
    void SetUp() override {
        folder_ = std::make_unique<test::ProgramFolder>(
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        session_.paths = ProgramPaths(folder_->Root());
        test::BuildOfficeProject(session_);
    }
    std::string ToSi() {
        LineWriter out;
        out.Line(HeadLine(session_.model, "SI"));
        WriteProjectFileToSI(session_, out);
        return out.Str();
    }
    // The line after the first line equal to `anchor`, `offset` lines on.
    static std::string After(const std::string& f, const std::string& anchor, int offset) {
        return LineAt(f, FindLine(f, anchor) + offset);
    }
    std::unique_ptr<test::ProgramFolder> folder_;
    Session session_;
};

TEST_F(UnitConversionTest, ProjectClimateAndEconomicsToSi) {
    const std::string f = ToSi();
    EXPECT_EQ(LineAt(f, 0), "SOLVANE   .8376642   4  SI");
    // 4800 x 0.09290304 = 445.93; 185.5 / 0.09290304 = 1996.71.
    EXPECT_EQ(LineAt(f, 9), "FloorArea  445.9");
    EXPECT_EQ(LineAt(f, 10), "Con. Cost  1996.7");
    EXPECT_EQ(LineAt(f, 8), "Orient.   15");
    // HDD 10243 / 1.8 = 5690.556; elevation 9928 x 0.3048 + 0.5 = 3026.55 -> 3026.
    EXPECT_EQ(LineAt(f, 15),
              "          HDD = 5690.556    CDD = 0               WMO#   Lat.  Long.  STM.  Elev");
    EXPECT_EQ(LineAt(f, 16).substr(50), "72467339.217-106.317  -105  3026");
    // Jan: (19.3 - 32) / 1.8 = -7.056 -> -70.556 + 0.5 truncated -> -7.0;
    // Jul: (56.4 - 32) / 1.8 = 13.556 -> 13.6.
    const auto dbAve = LineAt(f, 18);
    EXPECT_EQ(dbAve.substr(10, 6), "    -7");
    EXPECT_EQ(dbAve.substr(10 + 6 * 6, 6), "  13.6");
    // Differences / 1.8: 6.6 / 1.8 = 3.667 -> 3.7.
    EXPECT_EQ(LineAt(f, 19).substr(10, 6), "   3.7");
    // Solar x 11.3565295: 657 -> 7461.24, kept to whole units so that 2269 ->
    // 25768.0 still fits its six columns; wind x 0.44704: 8.2 -> 3.67 -> 3.7.
    EXPECT_EQ(LineAt(f, 24).substr(10, 6), "  7461");
    EXPECT_EQ(LineAt(f, 24).substr(10 + 5 * 6, 6), " 25768");
    EXPECT_EQ(LineAt(f, 25).substr(10, 6), "   3.7");
    // (80.9 - 32) / 1.8 = 27.17; (51.4 - 32) / 1.8 = 10.78; (-11.3 - 32) / 1.8 = -24.06.
    EXPECT_EQ(LineAt(f, 26), "DesTemps: 27.2 10.8 -24.1 ");
    // 12.5 / 0.1055054762 = 118.477; 1.1 / 0.1055... = 10.426; 4.5 / 3.7854125 = 1.189.
    EXPECT_EQ(LineAt(f, 33), "Elec.Cost  118.48");
    EXPECT_EQ(LineAt(f, 35), "Gas  Cost  10.43");
    EXPECT_EQ(LineAt(f, 37), "WaterCost  1.19");
    EXPECT_EQ(LineAt(f, 36), "Gas  Esc. 2");
}

TEST_F(UnitConversionTest, CatalogsProfilesZonesAndSurfacesToSi) {
    const std::string f = ToSi();
    // U .064 x 5.6782628 = 0.3634; insulation 1.25 / 0.09290304 = 13.455.
    EXPECT_EQ(After(f, "ID. #     1", 2), "U-Factor   .363");
    EXPECT_EQ(After(f, "ID. #     1", 3), "Solar Abs .7");
    EXPECT_EQ(After(f, "ID. #     1", 6), "Ins. Cost  13.45");
    // Window 1: U .42 x 5.6782628 = 2.3849; 18 / 0.09290304 = 193.75.
    const int windows = FindLine(f, "WINDOW PROPERTIES");
    EXPECT_EQ(LineAt(f, windows + 3), "U-Factor   2.385");
    EXPECT_EQ(LineAt(f, windows + 7), "Ins. Cost  193.75");

    // Thermostats: (76 - 32) / 1.8 = 24.4, (85 - 32) / 1.8 = 29.4 under "@@@@";
    // other profiles are copied.
    const int cool = FindLine(f, "Summer Thermostat (cooling set point)");
    EXPECT_EQ(LineAt(f, cool + 2).substr(10, 8), "29.429.4");
    EXPECT_EQ(LineAt(f, cool + 2).substr(10 + 4 * 8, 4), "24.4");
    const int heat = FindLine(f, "Winter Thermostat (heating set point)");
    EXPECT_EQ(LineAt(f, heat + 2).substr(10, 4), "15.6");  // 60 F
    const int occ = FindLine(f, "Occupancy (% of peak occupants)");
    EXPECT_EQ(LineAt(f, occ + 2).substr(10, 8), "   5   5");

    const int z = FindLine(f, "ZONES");
    EXPECT_EQ(LineAt(f, z + 3), "Flr. Area  148.6");  // 1600 x 0.09290304 = 148.64
    EXPECT_EQ(LineAt(f, z + 4), "Int. Mass  195.3");  // 40 x 4.882428 = 195.30
    EXPECT_EQ(LineAt(f, z + 5), "No.People 16");
    EXPECT_EQ(LineAt(f, z + 7), "HW/person  3.8");     // 1 x 3.7854125
    EXPECT_EQ(LineAt(f, z + 9), "OA lit/s   CP9.4");   // 20 x 0.47194744 = 9.44
    EXPECT_EQ(LineAt(f, z + 11), "Cost/sq.m  16.15");  // 1.5 / 0.09290304 = 16.146
    EXPECT_EQ(LineAt(f, z + 12), "Watt/sq.m  8.83");   // .82 / 0.09290304 = 8.826
    EXPECT_EQ(LineAt(f, z + 14), "Receptacle1.5");
    EXPECT_EQ(LineAt(f, z + 22), "l/s/sq.m.  .5");     // .1 x 5.0799972 = 0.508
    EXPECT_EQ(LineAt(f, z + 25), "DL Depth   4.6");    // 15 x 0.3048 = 4.572
    EXPECT_EQ(LineAt(f, z + 26), "Target FC  538");    // 50 x 10.7639104 = 538.2
    EXPECT_EQ(LineAt(f, z + 28), "Stat.Pres  373.2");  // 1.5 x 248.8
    EXPECT_EQ(LineAt(f, z + 29), "Cool SEER  3.8");    // 13 / 3.412141 = 3.810
    EXPECT_EQ(LineAt(f, z + 30), "Heat COP   .9");     // 3.2 / 3.412141 = 0.938
    EXPECT_EQ(LineAt(f, z + 31), "1st Cost  12000");
    // Surfaces, as 32-bit floats of 7 digits: 400 x 0.09290304 = 37.161216,
    // 120 x 0.09290304 = 11.1483648 (the float is 11.14836502), 3 x 0.3048.
    EXPECT_EQ(LineAt(f, z + 34), "Wall Area  37.16122 ");
    EXPECT_EQ(LineAt(f, z + 39), "Win. Area  11.14837 ");
    EXPECT_EQ(LineAt(f, z + 40), "Rf/Wl Slp  90 ");
    EXPECT_EQ(LineAt(f, z + 44), "Sill High  .9144 ");
    EXPECT_EQ(LineAt(f, z + 45), "Window Ht  1.524 ");

    // Outdoor air per area: .15 x 5.0799972 = 0.762; a percentage is unchanged.
    EXPECT_EQ(After(f, "Zone No.  1-2", 8), "OA lit/s   CS.76");
    EXPECT_EQ(After(f, "Zone No.  2-1", 8), "OA lit/s   PA20");
    // The matrix is copied as it stands.
    EXPECT_EQ(After(f, "BUILDING MATRIX", 1), "Grid Size   :2");
}

TEST_F(UnitConversionTest, OutdoorAirWithoutPrefixCountsPerPerson) {
    session_.model.zones.ZoneData[1][9] = "15";
    const std::string f = ToSi();
    EXPECT_EQ(After(f, "Zone No.  1-1", 8), "OA lit/s   CP7.1");  // 15 x 0.4719 = 7.08
    EXPECT_EQ(session_.model.zones.ZoneData[1][9], "15");
}

TEST_F(UnitConversionTest, TheModelInMemoryIsUnchanged) {
    session_.model.climate.DesTempsPresent = 0;  // would be computed on the way out
    session_.model.zones.ZoneData[2][9] = "20";
    const ProjectModel before = session_.model;
    ToSi();
    LineWriter ip;
    WriteProjectFileToIP(session_, ip);
    const ProjectModel& after = session_.model;
    EXPECT_EQ(after.session.Units, 1);
    EXPECT_EQ(after.ProjectData, before.ProjectData);
    EXPECT_EQ(after.climate.WeatherData, before.climate.WeatherData);
    EXPECT_EQ(after.climate.DesTemps, before.climate.DesTemps);
    EXPECT_EQ(after.economics.EconomicsData, before.economics.EconomicsData);
    EXPECT_EQ(after.zones.ZoneData, before.zones.ZoneData);
    EXPECT_EQ(after.surfaces.SurfArea, before.surfaces.SurfArea);
    EXPECT_EQ(after.walls.WallUFactor, before.walls.WallUFactor);
    EXPECT_EQ(after.profiles.Types[kCoolStat].Profile, before.profiles.Types[kCoolStat].Profile);
    EXPECT_EQ(after.flags.DaylightingUsed, before.flags.DaylightingUsed);
}

TEST_F(UnitConversionTest, SiProjectBackToIp) {
    Session si;
    si.paths = session_.paths;
    test::ReadInto(si, ToSi());
    ASSERT_EQ(si.model.session.Units, 2);
    LineWriter out;
    out.Line(HeadLine(si.model, "IP"));
    WriteProjectFileToIP(si, out);
    const std::string f = out.Str();
    // 445.9 x 10.76391 = 4799.63; 1996.7 x 0.09290304 = 185.50.
    EXPECT_EQ(LineAt(f, 9), "FloorArea  4799.6");
    EXPECT_EQ(LineAt(f, 10), "Con. Cost  185.5");
    // 5690.556 x 1.8 = 10243.0; 3026 x 3.28084 = 9927.8 -> 9927.
    EXPECT_EQ(LineAt(f, 15).substr(16, 12), "10243       ");
    EXPECT_EQ(LineAt(f, 16).substr(76), "  9927");
    // -7 x 1.8 + 32 = 19.4 (the truncation towards zero lost a tenth on the way out).
    EXPECT_EQ(LineAt(f, 18).substr(10, 6), "  19.4");
    EXPECT_EQ(LineAt(f, 26), "DesTemps: 81 51.4 -11.4 ");
    // 118.48 x 0.1055054762 = 12.50; 1.19 x 3.7854125 = 4.50.
    EXPECT_EQ(LineAt(f, 33), "Elec.Cost  12.5");
    EXPECT_EQ(LineAt(f, 37), "WaterCost  4.5");
    const int z = FindLine(f, "ZONES");
    EXPECT_EQ(LineAt(f, z + 9), "OA CFM     CP19.9");  // 9.4 / 0.47194744 = 19.92
    EXPECT_EQ(LineAt(f, z + 11), "Cost/sqft  1.5");    // 16.15 x 0.09290304 = 1.500
    EXPECT_EQ(LineAt(f, z + 25), "DL Depth   15.1");   // 4.6 x 3.28084 = 15.09
    EXPECT_EQ(LineAt(f, z + 26), "Target FC  50");     // 538 x 0.09290304 = 49.98
    EXPECT_EQ(LineAt(f, z + 28), "Stat.Pres  1.5");
    EXPECT_EQ(LineAt(f, z + 29), "Cool SEER  13");                // 3.8 x 3.412141 = 12.97
    EXPECT_EQ(After(f, "Zone No.  1-2", 8), "OA CFM     CS.15");  // .76 / 5.0799972 = 0.1496

    // Areas come back to the float's precision: the factor pair isn't exact.
    Session back;
    back.paths = session_.paths;
    test::ReadInto(back, f);
    for (int s = 1; s <= 5; ++s) {
        const float original = session_.model.surfaces.SurfArea[1][s];
        EXPECT_NEAR(back.model.surfaces.SurfArea[1][s], original, original * 4e-6f);
        EXPECT_NEAR(back.model.surfaces.SurfWindowArea[1][s],
                    session_.model.surfaces.SurfWindowArea[1][s], 4e-4f);
    }
    EXPECT_NEAR(back.model.surfaces.SurfSillHeight[1][1], 3.0f, 1e-5f);
}

}  // namespace
}  // namespace solvane
