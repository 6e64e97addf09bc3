#include "tools/climate/climate_db_builder.h"

#include <set>
#include <stdexcept>

#include "core/item_reader.h"
#include "core/line_writer.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "weather/climate_database.h"

namespace solvane::climate_tools {

namespace {

std::vector<std::string_view> SplitCommas(std::string_view line) {
    std::vector<std::string_view> out;
    std::size_t start = 0;
    while (true) {
        const std::size_t comma = line.find(',', start);
        out.push_back(line.substr(
            start, comma == std::string_view::npos ? std::string_view::npos : comma - start));
        if (comma == std::string_view::npos) break;
        start = comma + 1;
    }
    return out;
}

// The columns every row must have, in table order after the fixed ones.
constexpr std::array<std::string_view, 8> kMonthlyColumns = {"dbave", "dbstd", "dbmax", "maxstd",
                                                             "dpave", "dpstd", "solar", "wind"};

}  // namespace

std::vector<StationRow> ParseStationTable(std::string_view csv, const std::string& fileName) {
    const std::vector<std::string> lines = SplitLines(csv);
    if (lines.empty()) throw ReadError(fileName, 1, "the station table is empty");
    const std::vector<std::string_view> header = SplitCommas(lines[0]);
    std::map<std::string, std::size_t, std::less<>> col;
    for (std::size_t i = 0; i < header.size(); ++i) col[std::string(header[i])] = i;
    auto need = [&](const std::string& name) {
        auto it = col.find(name);
        if (it == col.end()) throw ReadError(fileName, 1, "missing column " + name);
        return it->second;
    };
    const std::size_t cRegion = need("region"), cCode = need("group_code"),
                      cGroup = need("group_name"), cCity = need("city"), cMarker = need("marker"),
                      cWmo = need("wmo"), cWban = need("wban"), cLat = need("lat"),
                      cLon = need("lon"), cStm = need("std_meridian"), cElev = need("elev_ft"),
                      cHdd = need("hdd65"), cCdd = need("cdd65"), cCdd50 = need("cdd50"),
                      cZone = need("zone"), cSource = need("source_id");
    std::array<std::array<std::size_t, 13>, 9> cMonthly{};
    for (int r = 1; r <= 8; ++r)
        for (int m = 1; m <= 12; ++m)
            cMonthly[r][m] = need(std::string(kMonthlyColumns[r - 1]) + "_" + std::to_string(m));

    std::vector<StationRow> rows;
    rows.reserve(lines.size());
    for (std::size_t n = 1; n < lines.size(); ++n) {
        if (lines[n].empty()) continue;
        const std::vector<std::string_view> f = SplitCommas(lines[n]);
        const int lineNo = static_cast<int>(n) + 1;
        if (f.size() != header.size())
            throw ReadError(fileName, lineNo,
                            "expected " + std::to_string(header.size()) + " columns, found " +
                                std::to_string(f.size()));
        auto number = [&](std::size_t c) {
            if (!IsNumericText(f[c]))
                throw ReadError(fileName, lineNo,
                                "column " + std::string(header[c]) + " is not a number");
            return NumVal(f[c]);
        };
        StationRow row;
        row.region = static_cast<int>(number(cRegion));
        row.groupCode = f[cCode];
        row.groupName = f[cGroup];
        row.city = f[cCity];
        row.marker = f[cMarker];
        row.wmo = f[cWmo];
        row.wban = f[cWban];
        row.lat = number(cLat);
        row.lon = number(cLon);
        row.stdMeridian = number(cStm);
        row.elevFt = number(cElev);
        row.hdd65 = number(cHdd);
        row.cdd65 = number(cCdd);
        row.cdd50 = number(cCdd50);
        row.zone = f[cZone];
        row.sourceId = f[cSource];
        for (int r = 1; r <= 8; ++r)
            for (int m = 1; m <= 12; ++m) row.monthly[r][m] = number(cMonthly[r][m]);
        rows.push_back(std::move(row));
    }
    return rows;
}

namespace {

std::string NameText(const StationRow& row) {
    return row.city + ", " + row.groupName + row.marker;
}

}  // namespace

void CheckStationLimits(const std::vector<StationRow>& rows) {
    auto fail = [](const std::string& what) { throw std::runtime_error(what); };
    std::array<int, kRegions + 1> records{}, groups{};
    std::set<std::pair<int, std::string>> seenGroups;
    std::set<std::pair<int, std::string>> cities;
    int lastRegion = 0;
    std::string lastGroup;
    bool albertville = false, abee = false;
    for (const StationRow& row : rows) {
        if (row.region < 1 || row.region > kRegions) fail("region out of range for " + row.city);
        if (row.region < lastRegion) fail("regions out of order at " + row.city);
        if (row.region != lastRegion || row.groupCode != lastGroup) {
            if (!seenGroups.insert({row.region, row.groupCode}).second)
                fail("group " + row.groupCode + " is not contiguous");
            ++groups[row.region];
        }
        lastRegion = row.region;
        lastGroup = row.groupCode;
        ++records[row.region];
        if (NameText(row).size() > static_cast<std::size_t>(kNameFieldWidth))
            fail("name field over 40 characters: " + NameText(row));
        if (row.city.find(',') != std::string::npos || row.groupName.find(',') != std::string::npos)
            fail("comma in a name: " + NameText(row));
        if (row.marker.size() != 1 || std::string("#!*@").find(row.marker) == std::string::npos)
            fail("bad marker for " + row.city);
        if (row.zone.size() != 3 || row.zone[0] < '0' || row.zone[0] > '9')
            fail("bad climate zone for " + row.city);
        const std::size_t codeWidth = row.region <= 2 ? 2 : 3;
        if (row.groupCode.size() != codeWidth) fail("bad group code " + row.groupCode);
        if (row.groupName.size() > 35) fail("group name over 35 characters: " + row.groupName);
        if (!cities.insert({row.region, row.city}).second)
            fail("city name repeated in its region: " + row.city);
        if (row.wmo.empty() || row.wmo.size() > 6) fail("bad station number for " + row.city);
        albertville |= row.city == "Albertville Muni AP" && row.groupName == "Alabama";
        abee |= row.city == "Abee AgDM" && row.groupName == "Alberta";
    }
    for (int r = 1; r <= kRegions; ++r) {
        if (records[r] > kMaxRegionRecords) fail("region " + std::to_string(r) + " over 6000");
        if (groups[r] > kMaxStates) fail("region " + std::to_string(r) + " over 400 groups");
        if (records[r] == 0) fail("region " + std::to_string(r) + " is empty");
    }
    if (records[6] > kRegion6Records) fail("region 6 over 742 records");
    if (!albertville) fail("\"Albertville Muni AP\" (Alabama) is missing");
    if (!abee) fail("\"Abee AgDM\" (Alberta) is missing");
}

std::string FormatRecord(const StationRow& row) {
    LineWriter out;
    const std::string header =
        NumText(row.hdd65) + " " + NumText(row.cdd65) + " " + NumText(row.cdd50) + " " + row.zone;
    out.Line("\"" + row.groupCode + "\",\"" + row.sourceId + "\",\"" + header + "\"");
    WriteNameLineStart(out, NameText(row), row.wmo, row.lat, row.lon, row.stdMeridian);
    out.Num(row.elevFt).EndLine();
    for (int r = 1; r <= 8; ++r) WriteMonthlyRow(out, row.monthly[r], r == kSolar);
    return out.Str();
}

std::map<std::string, std::string> BuildClimateFiles(const std::vector<StationRow>& rows) {
    std::map<std::string, std::string> files;
    for (int r = 1; r <= kRegions; ++r) {
        std::string records;
        LineWriter tally;
        LineWriter maps;
        int count = 0, groups = 0;
        std::string lastGroup;
        for (const StationRow& row : rows) {
            if (row.region != r) continue;
            if (count == 0 || row.groupCode != lastGroup) {
                ++groups;
                tally.Text(FormatField(std::to_string(groups), "@@@@"))
                    .Text(row.groupCode)
                    .Column(10)
                    .Text(row.groupName)
                    .Column(45)
                    .EndLine();
                maps.Line(row.groupName + ".jpg");
                lastGroup = row.groupCode;
            }
            records += FormatRecord(row);
            ++count;
        }
        tally.Text("Last").Column(45).Text(FormatField(std::to_string(count), "@@@@@")).EndLine();
        files["Weth" + std::to_string(r) + "-" + std::string(kRegionNames[r]) + ".asc"] =
            std::move(records);
        files["StateTally" + std::to_string(r) + ".Out"] = tally.Str();
        files["Region" + std::to_string(r) + "/dir.txt"] = maps.Str();
    }
    return files;
}

}  // namespace solvane::climate_tools
