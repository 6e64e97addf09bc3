// The committed climate database against the station table it is built from.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "core/item_reader.h"
#include "core/program_paths.h"
#include "core/text_file.h"
#include "tests/weather/weather_test_support.h"
#include "weather/climate_database.h"

namespace fs = std::filesystem;
using namespace solvane;
using namespace solvane::climate_tools;

namespace {

const std::vector<StationRow>& Table() {
    static const std::vector<StationRow> rows = [] {
        const fs::path csv = test::SourceDir() / "tools" / "climate" / "stations.csv";
        const auto text = ReadTextFile(csv);
        if (!text) throw std::runtime_error("station table missing: " + csv.string());
        return ParseStationTable(*text, csv.string());
    }();
    return rows;
}

}  // namespace

TEST(ClimateGenerator, RebuildsTheCommittedFilesByteForByte) {
    const std::vector<StationRow>& rows = Table();
    ASSERT_EQ(rows.size(), 15484u);
    EXPECT_NO_THROW(CheckStationLimits(rows));
    const auto files = BuildClimateFiles(rows);
    EXPECT_EQ(files.size(), 24u);
    const fs::path weather = test::SourceDir() / "data" / "weather";
    for (const auto& [name, content] : files) {
        const auto committed = ReadTextFile(weather / name);
        ASSERT_TRUE(committed.has_value()) << name;
        EXPECT_TRUE(*committed == content) << name << " differs from a fresh build";
    }
}

TEST(ClimateGenerator, CommittedFilesReadBackToTheTableValues) {
    const std::vector<StationRow>& rows = Table();
    const fs::path dataDir = test::SourceDir() / "data";
    const ProgramPaths paths(test::SourceDir() / "data");
    std::map<int, std::vector<std::string>> lines;
    for (int r = 1; r <= kRegions; ++r)
        lines[r] = SplitLines(ReadTextFile(paths.Resolve(RegionFilePath(r))).value_or(""));
    std::map<int, std::size_t> next;
    for (const StationRow& row : rows) {
        const std::size_t at = next[row.region];
        next[row.region] += kRecordLines;
        const std::vector<std::string>& l = lines[row.region];
        ASSERT_LT(at + 9, l.size()) << row.city;
        const auto key = SplitKeyLine(l[at]);
        ASSERT_EQ(key.size(), 3u);
        EXPECT_EQ(key[0], row.groupCode);
        const ClimateHeader h = ParseClimateHeader(key[2], 1);
        EXPECT_EQ(h.HeatingDegreeDays, row.hdd65);
        EXPECT_EQ(h.CoolingDegreeDays, row.cdd65);
        EXPECT_EQ(h.ClimateZone, row.zone);
        const NameLine name = ParseNameLine(l[at + 1]);
        EXPECT_EQ(CityOfNameField(name.name), row.city);
        EXPECT_EQ(MarkerOfNameField(name.name, ""), row.marker);
        EXPECT_EQ(name.wmo, row.wmo);
        EXPECT_DOUBLE_EQ(name.latitude, row.lat);
        EXPECT_DOUBLE_EQ(name.longitude, row.lon);
        EXPECT_DOUBLE_EQ(name.standardMeridian, row.stdMeridian);
        EXPECT_DOUBLE_EQ(name.elevation, row.elevFt);
        for (int r = 1; r <= 8; ++r) {
            const auto values = ParseMonthlyRow(l[at + 1 + static_cast<std::size_t>(r)]);
            const double tolerance = r == kSolar ? 0.5 : 0.05;
            for (int m = 1; m <= 12; ++m)
                ASSERT_NEAR(values[m], row.monthly[r][m], tolerance)
                    << row.city << " row " << r << " month " << m;
        }
    }
    for (int r = 1; r <= kRegions; ++r) EXPECT_EQ(next[r], lines[r].size()) << "region " << r;
}

TEST(ClimateGenerator, IndexOfTheCommittedDatabase) {
    ClimateIndex index;
    const long total = LoadLocationCounts(ProgramPaths(test::SourceDir() / "data"), index);
    EXPECT_EQ(total, 15484);
    const int expectedGroups[] = {0, 51, 13, 55, 36, 54, 41, 1, 17};
    const int expectedCities[] = {0, 2897, 852, 1351, 3056, 3672, 742, 1792, 1122};
    for (int r = 1; r <= kRegions; ++r) {
        EXPECT_EQ(index.RegionStateCount[r], expectedGroups[r]) << r;
        EXPECT_EQ(index.RegionCityCount[r], expectedCities[r]) << r;
        // Groups follow each other without gaps and cover the region.
        int expectedFirst = 1;
        for (int i = 1; i <= index.RegionStateCount[r]; ++i) {
            EXPECT_EQ(index.StateFirstRecord[r][i], expectedFirst) << r << " " << i;
            expectedFirst += static_cast<int>(index.StateCityCount[r][i]);
            EXPECT_EQ(index.StateMapName[r][i], index.StateName[r][i]);
        }
        EXPECT_EQ(expectedFirst - 1, index.RegionCityCount[r]) << r;
    }
    EXPECT_EQ(index.TotalCountries, 2 + 55 + 36 + 54 + 41 + 1 + 17);
    EXPECT_EQ(index.StateName[1][1], "Alabama");
    EXPECT_EQ(index.StateCode[1][1], "AL");
    EXPECT_EQ(index.StateName[2][1], "Alberta");
    EXPECT_EQ(index.StateName[7][1], "Russia");
    EXPECT_EQ(index.StateCode[7][1], "RUS");
    EXPECT_EQ(index.RegionSummary[1], "USA Files: 51 States, 2897 Cities.");
    EXPECT_EQ(index.RegionSummary[7], "Russia: 1792 Cities.");
}

TEST(ClimateGenerator, LimitsOfTheReadingProgramAreChecked) {
    std::vector<StationRow> rows = {test::Station(1, "AL", "Alabama", "Albertville Muni AP"),
                                    test::Station(2, "AB", "Alberta", "Abee AgDM")};
    for (int r = 3; r <= kRegions; ++r) rows.push_back(test::Station(r, "AAA", "Aland", "X"));
    EXPECT_NO_THROW(CheckStationLimits(rows));

    auto tooLong = rows;
    tooLong[0].city = std::string(33, 'x');  // 33 + ", Alabama" + marker = 43
    EXPECT_THROW(CheckStationLimits(tooLong), std::runtime_error);

    auto region6 = rows;
    for (int i = 0; i < kRegion6Records; ++i)
        region6.push_back(test::Station(6, "AAA", "Aland", "C" + std::to_string(i)));
    EXPECT_THROW(CheckStationLimits(region6), std::runtime_error);  // 743 in region 6

    auto split = rows;
    split.insert(split.begin() + 1, test::Station(1, "AK", "Alaska", "Anchorage"));
    split.insert(split.begin() + 2, test::Station(1, "AL", "Alabama", "Birmingham"));
    EXPECT_THROW(CheckStationLimits(split), std::runtime_error);  // Alabama split in two

    auto noDefault = rows;
    noDefault[1].city = "Calgary";
    EXPECT_THROW(CheckStationLimits(noDefault), std::runtime_error);
}

TEST(ClimateGenerator, BadTableRowNamesItsLine) {
    EXPECT_THROW(ParseStationTable("region,group_code\n1,AL\n", "t.csv"), ReadError);
    const std::string table =
        *ReadTextFile(test::SourceDir() / "tools" / "climate" / "stations.csv");
    const std::string header = table.substr(0, table.find('\n'));
    const std::string good = table.substr(0, table.find('\n', header.size() + 1) + 1);
    // The second station with a latitude that is not a number.
    std::vector<std::string> cells;
    std::size_t start = 0;
    const std::string row = good.substr(header.size() + 1, good.size() - header.size() - 2);
    for (std::size_t comma; (comma = row.find(',', start)) != std::string::npos; start = comma + 1)
        cells.push_back(row.substr(start, comma - start));
    cells.push_back(row.substr(start));
    cells[7] = "3x.5";
    std::string bad;
    for (const std::string& c : cells) bad += (bad.empty() ? "" : ",") + c;
    try {
        ParseStationTable(good + bad + "\n", "s.csv");
        FAIL() << "no error";
    } catch (const ReadError& e) {
        EXPECT_EQ(e.File(), "s.csv");
        EXPECT_EQ(e.Line(), 3);
        EXPECT_NE(std::string(e.what()).find("lat"), std::string::npos);
    }
}
