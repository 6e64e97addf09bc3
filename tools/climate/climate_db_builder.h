// Builds the files of the city climate database from the station table
// (tools/climate/stations.csv): the eight region files, the state tallies and
// the map lists. Used by the make_climate_db tool and by the tests that check
// the committed files against a fresh build.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace solvane::climate_tools {

// One row of the station table, values in I-P units.
struct StationRow {
    int region = 0;
    std::string groupCode, groupName, city, marker, wmo, wban;
    double lat = 0, lon = 0, stdMeridian = 0, elevFt = 0;
    double hdd65 = 0, cdd65 = 0, cdd50 = 0;
    std::string zone;  // three characters, "4 A" or "7  "
    // [row 1..8][month 1..12]: dbave, dbstd, dbmax, maxstd, dpave, dpstd,
    // solar, wind.
    std::array<std::array<double, 13>, 9> monthly{};
    std::string sourceId;
};

// Parses the table; throws ReadError naming the line of a bad row.
std::vector<StationRow> ParseStationTable(std::string_view csv, const std::string& fileName);

// Checks the limits of the reading program: records and groups a region,
// region 6's listing limit, the name field width, group order. Throws
// std::runtime_error with the first violation.
void CheckStationLimits(const std::vector<StationRow>& rows);

// The ten lines of one record.
std::string FormatRecord(const StationRow& row);

// Every generated file, keyed by its path under the weather folder
// ("Weth1-USA.asc", "StateTally1.Out", "Region1/dir.txt").
std::map<std::string, std::string> BuildClimateFiles(const std::vector<StationRow>& rows);

}  // namespace solvane::climate_tools
