// The city climate database: eight region files of ten-line city records, the
// state tallies and map lists beside them, and the index built from them once
// at start-up.
//
// Record layout (every value in I-P units):
//   line 1   "key","carried","HDD CDD ... zone"   (group key, carried text,
//            climate header whose last three characters are the zone)
//   line 2   "city, state<marker>   " "WMO" lat lon time-zone elevation
//            (the name in quotes with its closing quote in column 42)
//   lines 3..10  eight monthly rows of twelve six-character fields
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/line_writer.h"
#include "core/program_paths.h"

namespace solvane {

inline constexpr int kRegions = 8;
inline constexpr int kMaxStates = 400;          // groups in a region
inline constexpr int kMaxRegionRecords = 6000;  // records counted in a region
inline constexpr int kRegion6Records = 742;     // the listing limit of region 6
inline constexpr int kRecordLines = 10;
inline constexpr int kNameFieldWidth = 40;  // characters between the quotes
inline constexpr int kNameCloseColumn = 42;

// The region names that make the file names.
inline constexpr std::array<std::string_view, kRegions + 1> kRegionNames = {
    "",           "USA",    "Canada",
    "Africa",     "Asia",   "Europe",
    "CS-America", "Russia", "Australia-SW-Pacific"};

// Captions of the region options of the location screen.
inline constexpr std::array<std::string_view, kRegions + 1> kRegionCaptions = {
    "",
    "USA",
    "Canada",
    "Africa",
    "Asia (except Russia)",
    "Europe",
    "Central and South America",
    "Russia",
    "Australia/ Antarctica/ SE Asia/ Oceania Islands"};

// Program paths of a region's files.
std::string RegionFilePath(int region);  // "\weather\Weth<n>-<name>.asc"
std::string StateTallyPath(int region);  // "\weather\StateTally<n>.Out"
std::string MapListPath(int region);     // "\weather\Region<n>\dir.txt"

// The in-memory index of all regions. Index 0 of regions and states stays
// empty.
struct ClimateIndex {
    template <typename T>
    using PerState = std::array<std::array<T, kMaxStates + 1>, kRegions + 1>;

    std::array<std::string, kRegions + 1> RegionName{};
    std::array<std::int16_t, kRegions + 1> RegionCityCount{};
    std::array<std::int16_t, kRegions + 1> RegionStateCount{};
    PerState<std::string> StateName;
    PerState<std::string> StateCode;
    PerState<std::string> StateMapName;
    PerState<std::int16_t> StateFirstRecord{};
    PerState<double> StateCityCount{};
    // Wider than a region's count: eight full region files exceed 32767.
    std::int32_t TotalCities = 0;
    std::int32_t TotalCountries = 0;
    std::array<std::string, kRegions + 1> RegionSummary{};

    ClimateIndex();
};

// Recounts every region file in records of ten lines: RegionCityCount (a file
// of more than 6000 records gives 6001) and TotalCities. A missing file
// counts 0.
void CountCityRecords(const ProgramPaths& paths, ClimateIndex& index);

// Reads StateTally, dir.txt and the region files of all regions. The tally's
// last line gives RegionCityCount. Throws ReadError naming the file when a
// tally or region file is missing.
void LoadClimateIndex(const ProgramPaths& paths, ClimateIndex& index);

// Start-up: counts the records, loads the index and fills the summaries.
// Returns the true number of records in all region files (TotalCities).
long LoadLocationCounts(const ProgramPaths& paths, ClimateIndex& index);

// Fills RegionSummary for every region from the index.
void FillRegionSummaries(ClimateIndex& index);
// "Totals = <countries> Countries, <cities> Cities".
std::string TotalsLine(const ClimateIndex& index);
// The region's line beside its option: "<states> states, <cities> cities".
std::string RegionCountLine(const ClimateIndex& index, int region);

// Degree days and zone from the third field of a record's first line.
struct ClimateHeader {
    float HeatingDegreeDays = 0;
    float CoolingDegreeDays = 0;
    std::string ClimateZone;
};
// The first two blank-separated numbers and the last three characters. With
// units 2 the degree days become deg C days (divided by 1.8, whole numbers).
ClimateHeader ParseClimateHeader(std::string_view text, int units);

// ---- record lines -----------------------------------------------------------

// The comma-separated fields of a record's first line; quoted fields keep
// every character inside their quotes.
std::vector<std::string> SplitKeyLine(std::string_view line);

// The fields of a record's second line: the quoted name, the quoted station
// number, then the blank-separated numbers.
struct NameLine {
    std::string name;  // the whole name field, trailing blanks included
    std::string wmo;
    double latitude = 0, longitude = 0, standardMeridian = 0, elevation = 0;
};
NameLine ParseNameLine(std::string_view line);

// The city part of a name field: the characters before its first comma (the
// whole field when it has none).
std::string CityOfNameField(std::string_view nameField);

// The marker carried behind the location text: the last of "#", "!", "*", "@"
// in the field, with a following "#" joined to it. `previous` when none.
std::string MarkerOfNameField(std::string_view nameField, const std::string& previous);

// Twelve numbers of a monthly row (blank or comma separated).
std::array<double, 13> ParseMonthlyRow(std::string_view line);

// Writes the quoted name (cut at 40 characters, closing quote in column 42,
// one blank), the quoted station number and a blank, then latitude,
// longitude and time zone in file print form. The caller adds the elevation
// and ends the line.
void WriteNameLineStart(LineWriter& out, std::string_view nameText, std::string_view wmo,
                        double latitude, double longitude, double timeZone);

// Writes one monthly row of I-P values: each rounded to one decimal (solar to
// none) and right-aligned in six characters, then the line end.
void WriteMonthlyRow(LineWriter& out, const std::array<double, 13>& values, bool solar);

// Monthly rows of a record, row 1..8.
enum MonthlyRow : int {
    kDbAve = 1,
    kAveStd = 2,
    kDbMax = 3,
    kMaxStd = 4,
    kDpAve = 5,
    kDpStd = 6,
    kSolar = 7,
    kWind = 8,
};

// I-P file value -> screen value in the given units, and back.
double MonthlyToScreen(int row, double fileValue, int units);
double MonthlyToFile(int row, double screenValue, int units);

}  // namespace solvane
