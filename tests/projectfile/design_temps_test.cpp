// Design temperatures from the climate block. The expected figures were
// worked out apart from this code, step by step from the monthly rows; the
// wet-bulb of the high site was also checked against a wet-bulb found with
// the Hyland-Wexler saturation pressure and the psychrometric balance of
// ASHRAE Handbook - Fundamentals (2017), ch. 1: 51.46 F against 51.4 F here.

#include <gtest/gtest.h>

#include "core/numeric_helpers.h"
#include "projectfile/design_temps.h"
#include "projectfile/project_file.h"
#include "test_project.h"

namespace solvane {
namespace {

std::string Row(const std::vector<double>& v) {
    std::string out;
    for (double x : v) out += FormatField(NumText(RoundOff(x, 1)), "@@@@@@");
    return out;
}

// Miami Intl AP, 36 ft (see data/sample/README.md for the source).
ClimateState Miami() {
    ClimateState c;
    std::string station = "Miami Intl AP, Florida #";
    station.resize(50, ' ');
    c.WeatherData[2] = station + "72202025.817-80.300   -75    36";
    c.WeatherData[4] =
        Row({67.0, 69.6, 70.8, 75.4, 79.5, 81.8, 82.6, 82.4, 81.5, 79.4, 74.5, 68.5});
    c.WeatherData[5] = Row({5.4, 5.3, 5.9, 2.8, 2.1, 1.9, 1.6, 2.2, 2.1, 1.7, 5.0, 6.3});
    c.WeatherData[6] =
        Row({74.5, 77.7, 77.3, 81.7, 86.0, 87.0, 90.4, 88.5, 87.9, 85.9, 80.0, 75.4});
    c.WeatherData[7] = Row({5.6, 4.8, 4.7, 3.9, 3.4, 1.4, 2.7, 2.7, 1.3, 2.4, 3.9, 5.6});
    c.WeatherData[8] =
        Row({56.5, 57.0, 59.2, 63.3, 69.2, 72.8, 73.0, 73.5, 72.6, 70.0, 65.2, 60.3});
    c.WeatherData[9] = Row({9.3, 9.8, 9.9, 5.2, 2.6, 1.5, 1.2, 1.0, 1.1, 4.1, 8.1, 8.4});
    c.WeatherData[10] =
        Row({1104, 1343, 1635, 1878, 1840, 1756, 1904, 1739, 1548, 1368, 1125, 1019});
    c.WeatherData[11] = Row({7.4, 12.4, 12.5, 10.5, 11.3, 8.6, 6.4, 7.7, 7.6, 8.3, 9.8, 8.3});
    return c;
}

TEST(SaturationPressureTest, FitBelow85AndTheKeptFormAbove) {
    // Cubic fit: within 2 % of the Hyland-Wexler values 0.1805, 0.5219, 1.2144.
    EXPECT_NEAR(SaturationPressure(32), 0.17688, 1e-5);
    EXPECT_NEAR(SaturationPressure(60), 0.52834, 1e-5);
    EXPECT_NEAR(SaturationPressure(85), 1.20041, 1e-5);
    // Above 85 F the program's own form of Goff-Gratch: natural logarithm
    // and the "minus 1" inside the powers give 5.3695 at 90 F.
    EXPECT_NEAR(SaturationPressure(90), 5.36952, 1e-4);
    EXPECT_NEAR(SaturationPressure(100), 6.48418, 1e-4);
    // Far below the fit's range the result is floored.
    EXPECT_GT(SaturationPressure(-2000), 0.0);
}

TEST(DesignTempsTest, SeaLevelSiteTakesTheEstimate) {
    // Summer: Jul 90.4 + 2.11 x 2.7 = 96.1. Winter: Dec 2 (68.5 - 2.11 x 6.3)
    // - (75.4 - 2.11 x 5.6) = 46.8. Peak dew point Nov 65.2 + 2.11 x 8.1
    // = 82.3 at a mean dry-bulb of 74.5, so the wet-bulb estimate (80.3) is
    // held to that dry-bulb.
    const WeatherMonths w = SplitWeatherRows(Miami(), 1);
    EXPECT_FLOAT_EQ(w.SiteElevationFt, 36);
    EXPECT_EQ(w.MonthDBMax[7], "90.4");
    const TextTable<3> t = ComputeDesignTemps(Miami(), 1);
    EXPECT_EQ(t[1], "96.1");
    EXPECT_EQ(t[2], "74.5");
    EXPECT_EQ(t[3], "46.8");
}

TEST(DesignTempsTest, HighSiteIteratesTheWetBulb) {
    // Leadville, 9928 ft: P = 29.92 - 9928 x 5.031 / 5000 = 19.930 in.Hg.
    // The peak dew point is August's, 28.8 + 2.11 x 9.9 = 49.689, at a mean
    // dry-bulb of 54.9: h = 25.54 Btu/lb, the sea-level estimate 58.6 F, and
    // the search from it ends at 51.4 F.
    test::ProgramFolder folder("DesignTempsHigh");
    Session s;
    s.paths = ProgramPaths(folder.Root());
    test::BuildOfficeProject(s);
    const TextTable<3> t = ComputeDesignTemps(s.model.climate, 1);
    EXPECT_EQ(t[1], "80.9");
    EXPECT_EQ(t[2], "51.4");
    EXPECT_EQ(t[3], "-11.3");
}

TEST(DesignTempsTest, SiProjectConvertsTheRowsAndTheResults) {
    // The SI rows (one decimal each) come back to I-P one decimal at a time,
    // so the winter figure moves: -10.6 F, -23.7 C.
    test::ProgramFolder folder("DesignTempsSi");
    Session s;
    s.paths = ProgramPaths(folder.Root());
    test::BuildOfficeProject(s);
    LineWriter out;
    out.Line(HeadLine(s.model, "SI"));
    WriteProjectFileToSI(s, out);
    Session si;
    si.paths = s.paths;
    test::ReadInto(si, out.Str());
    const WeatherMonths w = SplitWeatherRows(si.model.climate, 2);
    EXPECT_FLOAT_EQ(w.SiteElevationFt, 9927);  // 3026 m x 3.28084, truncated
    EXPECT_EQ(w.MonthDBAve[1], "19.4");
    const TextTable<3> t = ComputeDesignTemps(si.model.climate, 2);
    EXPECT_EQ(t[1], "27.2");
    EXPECT_EQ(t[2], "10.8");
    EXPECT_EQ(t[3], "-23.7");
}

TEST(DesignTempsTest, SeaLevelPressureAndBlankMonths) {
    ClimateState c = Miami();
    c.WeatherData[2].replace(c.WeatherData[2].size() - 6, 6, "     0");
    EXPECT_FLOAT_EQ(SplitWeatherRows(c, 1).SiteElevationFt, 0);
    EXPECT_EQ(ComputeDesignTemps(c, 1)[1], "96.1");
    // December missing from every row counts as zeros: its winter candidate
    // is 0 and is the lowest.
    for (int row = 4; row <= 11; ++row) c.WeatherData[row].resize(66);
    EXPECT_EQ(SplitWeatherRows(c, 1).MonthDBAve[12], "");
    EXPECT_EQ(ComputeDesignTemps(c, 1)[3], "0");
}

TEST(DesignTempsTest, AnExponentInTheElevationFieldIsHeldToItsSixDigits) {
    ClimateState c = Miami();
    c.WeatherData[2].replace(c.WeatherData[2].size() - 6, 6, "1E3000");
    EXPECT_FLOAT_EQ(SplitWeatherRows(c, 1).SiteElevationFt, 999999);
    EXPECT_FLOAT_EQ(SplitWeatherRows(c, 2).SiteElevationFt, 3280836);  // x 3.28084, truncated
    EXPECT_FALSE(ComputeDesignTemps(c, 2)[1].empty());
}

TEST(DesignTempsTest, WhenTheyAreNeeded) {
    ProjectModel m;
    m.climate.DesTempsPresent = 0;
    EXPECT_TRUE(DesignTempsNeeded(m));
    m.climate.DesTempsPresent = 1;
    m.flags.ProjectFromFile = 1;
    EXPECT_TRUE(DesignTempsNeeded(m));  // blank [1] in a project from a file
    m.climate.DesTemps[1] = "95";
    EXPECT_FALSE(DesignTempsNeeded(m));
}

}  // namespace
}  // namespace solvane
