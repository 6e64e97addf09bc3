// Record parsing and writing, the climate header and the record counts.
#include <gtest/gtest.h>

#include "core/item_reader.h"
#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "tests/weather/weather_test_support.h"
#include "weather/climate_database.h"

namespace fs = std::filesystem;
using namespace solvane;

TEST(ClimateHeader, DegreeDaysAndZoneInBothUnits) {
    const ClimateHeader ip = ParseClimateHeader("5400 620 2900 4 A", 1);
    EXPECT_EQ(ip.HeatingDegreeDays, 5400);
    EXPECT_EQ(ip.CoolingDegreeDays, 620);
    EXPECT_EQ(ip.ClimateZone, "4 A");
    const ClimateHeader si = ParseClimateHeader("5400 620 2900 4 A", 2);
    EXPECT_EQ(si.HeatingDegreeDays, 3000);
    EXPECT_EQ(si.CoolingDegreeDays, 344);
    EXPECT_EQ(si.ClimateZone, "4 A");
    // Extra blanks between and before the figures do not matter; the zone is
    // the last three characters as they stand.
    const ClimateHeader spaced = ParseClimateHeader("  5400  620   7  ", 1);
    EXPECT_EQ(spaced.HeatingDegreeDays, 5400);
    EXPECT_EQ(spaced.CoolingDegreeDays, 620);
    EXPECT_EQ(spaced.ClimateZone, "7  ");
    const ClimateHeader empty = ParseClimateHeader("", 1);
    EXPECT_EQ(empty.HeatingDegreeDays, 0);
    EXPECT_EQ(empty.ClimateZone, "");
}

TEST(ClimateRecord, CityNameAndMarkerOfTheNameField) {
    EXPECT_EQ(CityOfNameField("Denver Intl AP, Colorado#     "), "Denver Intl AP");
    EXPECT_EQ(CityOfNameField("No comma here"), "No comma here");
    EXPECT_EQ(CityOfNameField(""), "");
    EXPECT_EQ(MarkerOfNameField("Denver Intl AP, Colorado#     ", "x"), "#");
    EXPECT_EQ(MarkerOfNameField("A, B*#", ""), "#");  // the last marker position wins
    EXPECT_EQ(MarkerOfNameField("A, B!#  ", ""), "#");
    EXPECT_EQ(MarkerOfNameField("A, B@", ""), "@");
    EXPECT_EQ(MarkerOfNameField("A, B#x", ""), "#");
    EXPECT_EQ(MarkerOfNameField("A, B", "*"), "*");  // none keeps the previous one
}

TEST(ClimateRecord, KeyLineFieldsKeepQuotedBlanks) {
    const auto f = SplitKeyLine("\"AL\",\"720376-63880\",\"3501 1342 4388 7  \"");
    ASSERT_EQ(f.size(), 3u);
    EXPECT_EQ(f[0], "AL");
    EXPECT_EQ(f[2], "3501 1342 4388 7  ");
    const auto bare = SplitKeyLine(" AL , x,\"a, b\"");
    ASSERT_EQ(bare.size(), 3u);
    EXPECT_EQ(bare[0], "AL");
    EXPECT_EQ(bare[2], "a, b");
}

TEST(ClimateRecord, NameLineIsWrittenInFixedColumnsAndReadBack) {
    LineWriter out;
    const std::string name45 = "Abcdefghij Abcdefghij Abcdefghij Abcd, Texas";  // 44 + marker
    ASSERT_EQ((name45 + "#").size(), 45u);
    WriteNameLineStart(out, name45 + "#", "722590", 32.9, -97.019, -90);
    out.Num(551.0).EndLine();
    const std::string line = out.Str();
    EXPECT_EQ(line.substr(0, 42),
              "\"" + name45.substr(0, 40) + "\"");  // cut at 40, quote in column 42
    EXPECT_EQ(line.substr(41), "\" \"722590\"  32.9 -97.019 -90  551 \r\n");

    LineWriter shortName;
    WriteNameLineStart(shortName, "Oslo, Norway*", "14920", 59.9, 10.7, 15);
    shortName.Num(-3.0).EndLine();
    EXPECT_EQ(shortName.Str().find('"', 1), 41u);  // column 42
    const NameLine back = ParseNameLine(SplitLines(shortName.Str())[0]);
    EXPECT_EQ(back.name, "Oslo, Norway*" + std::string(27, ' '));
    EXPECT_EQ(back.wmo, "14920");
    EXPECT_DOUBLE_EQ(back.latitude, 59.9);
    EXPECT_DOUBLE_EQ(back.longitude, 10.7);
    EXPECT_DOUBLE_EQ(back.standardMeridian, 15);
    EXPECT_DOUBLE_EQ(back.elevation, -3);
}

TEST(ClimateRecord, MonthlyRowsAndUnitConversions) {
    LineWriter out;
    std::array<double, 13> v{};
    v.fill(0.25);  // ties go to the even digit: .2
    v[1] = 38.54;
    v[2] = -0.46;
    v[3] = 0.04;
    v[4] = 117.9;
    WriteMonthlyRow(out, v, false);
    EXPECT_EQ(out.Str(),
              "  38.5   -.5     0 117.9    .2    .2    .2    .2    .2    .2    .2    .2\r\n");
    v.fill(1500.4);
    LineWriter solar;
    WriteMonthlyRow(solar, v, true);
    EXPECT_EQ(solar.Str().substr(0, 12), "  1500  1500");
    const auto back = ParseMonthlyRow("  38.5  42.6   -.5     0  1309,2,3,4,5,6,7,8");
    EXPECT_DOUBLE_EQ(back[1], 38.5);
    EXPECT_DOUBLE_EQ(back[3], -0.5);
    EXPECT_DOUBLE_EQ(back[5], 1309);
    EXPECT_DOUBLE_EQ(back[12], 8);

    EXPECT_EQ(RoundOff(MonthlyToScreen(kSolar, 1500, 2), 0), 17035.0f);
    EXPECT_EQ(RoundOff(MonthlyToScreen(kWind, 10, 2), 1), 4.5f);
    EXPECT_EQ(RoundOff(MonthlyToScreen(kDbAve, 212, 2), 1), 100.0f);
    EXPECT_EQ(RoundOff(MonthlyToScreen(kAveStd, 9, 2), 1), 5.0f);
    EXPECT_EQ(MonthlyToScreen(kSolar, 1500, 1), 1500);
    // Back to the file's units: not exact inverses, within a last digit.
    EXPECT_NEAR(MonthlyToFile(kSolar, 17035, 2), 1500, 0.05);
    EXPECT_NEAR(MonthlyToFile(kWind, 4.5, 2), 10.07, 0.01);
    EXPECT_DOUBLE_EQ(MonthlyToFile(kDpAve, 100, 2), 212);
    EXPECT_DOUBLE_EQ(MonthlyToFile(kDpStd, 5, 2), 9);
}

TEST(ClimateIndexFiles, CountsTallyAndGroups) {
    const fs::path dir = test::MakeProgramDir("index");
    std::vector<climate_tools::StationRow> rows = {
        test::Station(1, "AL", "Alabama", "Albertville Muni AP"),
        test::Station(1, "AL", "Alabama", "Birmingham"),
        test::Station(1, "AK", "Alaska", "Anchorage"),
        test::Station(2, "AB", "Alberta", "Abee AgDM"),
        test::Station(3, "KEN", "Kenya", "Nairobi", -1.3),
        test::Station(3, "UGA", "Uganda", "Entebbe", 0.0),
    };
    test::WriteDatabase(dir, rows);
    ClimateIndex index;
    const ProgramPaths paths(dir);
    EXPECT_EQ(LoadLocationCounts(paths, index), 6);
    EXPECT_EQ(index.RegionCityCount[1], 3);
    EXPECT_EQ(index.RegionStateCount[1], 2);
    EXPECT_EQ(index.StateFirstRecord[1][2], 3);
    EXPECT_EQ(index.StateCityCount[1][1], 2);
    EXPECT_EQ(index.RegionStateCount[4], 0);
    EXPECT_EQ(index.TotalCountries, 4);
    EXPECT_EQ(TotalsLine(index), "Totals = 4 Countries, 6 Cities");
    EXPECT_EQ(RegionCountLine(index, 1), "2 states, 3 cities");
    EXPECT_EQ(RegionCountLine(index, 3), "2 countries, 2 cities");
    EXPECT_EQ(index.RegionSummary[3], "Africa: 2 Countries, 2 Cities.");
    EXPECT_EQ(index.RegionSummary[2], "Canada Files: 1 Provinces, 1 Cities.");

    // The tally's total bounds the pass: a record appended to the file is
    // counted by CountCityRecords but left out of the groups.
    const fs::path usa = dir / "weather" / "Weth1-USA.asc";
    const std::string content = test::ReadAll(usa);
    WriteFileAtomic(usa, content + content.substr(0, content.find("\"AL\"", 10)));
    ClimateIndex again;
    EXPECT_EQ(LoadLocationCounts(paths, again), 7);
    EXPECT_EQ(again.RegionCityCount[1], 3);
    EXPECT_EQ(again.StateCityCount[1][2], 1);

    // Over 6000 records counts as 6001.
    std::string big;
    for (int i = 0; i < 6005; ++i) big += content.substr(0, content.find("\"AL\"", 10));
    WriteFileAtomic(usa, big);
    CountCityRecords(paths, again);
    EXPECT_EQ(again.RegionCityCount[1], 6001);

    fs::remove(dir / "weather" / "StateTally5.Out");
    ClimateIndex broken;
    EXPECT_THROW(LoadClimateIndex(paths, broken), ReadError);
    fs::remove_all(dir);
}

// A tally's count that cannot be a region's is refused with the tally file
// and its line, and eight oversized region files do not wrap the total.
TEST(ClimateIndexFiles, OversizedCountsAreToldOrHeld) {
    const fs::path dir = test::MakeProgramDir("oversized");
    test::WriteDatabase(dir, {test::Station(1, "AL", "Alabama", "Birmingham"),
                              test::Station(2, "AB", "Alberta", "Abee AgDM")});
    const ProgramPaths paths(dir);
    const fs::path tally = dir / "weather" / "StateTally1.Out";
    const std::string good = test::ReadAll(tally);
    for (const char* count : {"28979999999999999999", "-5", "99999"}) {
        WriteFileAtomic(tally, good.substr(0, good.find("Last")) +
                                   "Last                                         " + count +
                                   "\r\n");
        ClimateIndex index;
        try {
            LoadClimateIndex(paths, index);
            ADD_FAILURE() << count << " was taken";
        } catch (const ReadError& e) {
            EXPECT_EQ(e.File(), paths.Resolve(StateTallyPath(1)).string());
            EXPECT_EQ(e.Line(), 2) << e.what();
            EXPECT_NE(std::string(e.what()).find("city count"), std::string::npos) << e.what();
        }
    }

    const std::string record = test::ReadAll(dir / "weather" / "Weth1-USA.asc");
    std::string big;
    for (int i = 0; i < 6001; ++i) big += record;
    for (int r = 1; r <= kRegions; ++r) WriteFileAtomic(paths.Resolve(RegionFilePath(r)), big);
    ClimateIndex index;
    CountCityRecords(paths, index);
    EXPECT_EQ(index.TotalCities, 8 * 6001);
    fs::remove_all(dir);
}
