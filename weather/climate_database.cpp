#include "weather/climate_database.h"

#include <algorithm>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "core/unit_factors.h"

namespace solvane {

std::string RegionFilePath(int region) {
    return "\\weather\\Weth" + std::to_string(region) + "-" +
           std::string(kRegionNames[static_cast<std::size_t>(region)]) + ".asc";
}

std::string StateTallyPath(int region) {
    return "\\weather\\StateTally" + std::to_string(region) + ".Out";
}

std::string MapListPath(int region) {
    return "\\weather\\Region" + std::to_string(region) + "\\dir.txt";
}

ClimateIndex::ClimateIndex() {
    for (int r = 1; r <= kRegions; ++r) RegionName[r] = std::string(kRegionNames[r]);
}

namespace {

// Reads a file the index cannot do without; a missing one is a read error
// naming the file.
std::string ReadRequired(const ProgramPaths& paths, const std::string& relative) {
    const auto path = paths.Resolve(relative);
    auto content = ReadTextFile(path);
    if (!content) throw ReadError(path.string(), 0, "File not found");
    return std::move(*content);
}

std::string_view RightTrimmed(std::string_view s) {
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

// Lines of a record file are counted the way a reader of ten lines at a time
// meets them: a last partial record still counts.
int RecordsInLines(std::size_t lines) {
    return static_cast<int>((lines + kRecordLines - 1) / kRecordLines);
}

}  // namespace

void CountCityRecords(const ProgramPaths& paths, ClimateIndex& index) {
    long total = 0;
    for (int r = 1; r <= kRegions; ++r) {
        const auto content = ReadTextFile(paths.Resolve(RegionFilePath(r)));
        int count = 0;
        if (content) {
            count = std::min(RecordsInLines(SplitLines(*content).size()), kMaxRegionRecords + 1);
        }
        index.RegionCityCount[r] = static_cast<std::int16_t>(count);
        total += count;
    }
    index.TotalCities = static_cast<std::int32_t>(total);
}

namespace {

void LoadStateTally(const ProgramPaths& paths, ClimateIndex& index, int r) {
    const std::string file = StateTallyPath(r);
    const std::vector<std::string> lines = SplitLines(ReadRequired(paths, file));
    const std::size_t codeWidth = r <= 2 ? 2 : 3;
    int states = 0;
    for (std::size_t i = 0; i < lines.size() && i < kMaxStates; ++i) {
        const std::string& line = lines[i];
        if (line.compare(0, 4, "Last") == 0) {
            const std::size_t from = line.size() > 5 ? line.size() - 5 : 0;
            const std::string_view count = RightTrimmed(std::string_view(line).substr(from));
            const double cities = NumVal(count);
            if (!(cities >= 0 && cities <= kMaxRegionRecords + 1))
                throw ReadError(paths.Resolve(file).string(), static_cast<int>(i) + 1,
                                "the region's city count \"" + std::string(count) +
                                    "\" is out of range (0 to " +
                                    std::to_string(kMaxRegionRecords + 1) + ")");
            index.RegionCityCount[r] = static_cast<std::int16_t>(cities);
            break;
        }
        if (states == kMaxStates) break;
        ++states;
        const std::string_view view(line);
        index.StateCode[r][states] = view.size() > 4 ? std::string(view.substr(4, codeWidth)) : "";
        index.StateName[r][states] =
            view.size() > 9 ? std::string(RightTrimmed(view.substr(9, 35))) : "";
    }
    index.RegionStateCount[r] = static_cast<std::int16_t>(states);
}

void LoadMapList(const ProgramPaths& paths, ClimateIndex& index, int r) {
    const auto content = ReadTextFile(paths.Resolve(MapListPath(r)));
    if (!content) throw ReadError(paths.Resolve(MapListPath(r)).string(), 0, "File not found");
    ItemReader reader(*content, MapListPath(r));
    for (int i = 1; i <= index.RegionStateCount[r] && !reader.AtEnd(); ++i) {
        std::string item = reader.NextText();
        item.resize(item.size() > 4 ? item.size() - 4 : 0);
        index.StateMapName[r][i] = std::move(item);
    }
}

void LoadGroups(const ProgramPaths& paths, ClimateIndex& index, int r) {
    const std::vector<std::string> lines = SplitLines(ReadRequired(paths, RegionFilePath(r)));
    int group = 0;
    std::string previousKey;
    const int count = index.RegionCityCount[r];
    for (int i = 1; i <= count; ++i) {
        const std::size_t first = static_cast<std::size_t>(i - 1) * kRecordLines;
        if (first + 1 >= lines.size()) break;  // lines 1 and 2 must be there
        std::vector<std::string> fields = SplitKeyLine(lines[first]);
        std::string key = fields.empty() ? std::string() : std::move(fields[0]);
        if (group > 0 && key == previousKey) {
            index.StateCityCount[r][group] += 1;
        } else if (group < kMaxStates) {
            ++group;
            index.StateFirstRecord[r][group] = static_cast<std::int16_t>(i);
            index.StateCityCount[r][group] = 1;
        }
        previousKey = std::move(key);
    }
}

}  // namespace

void LoadClimateIndex(const ProgramPaths& paths, ClimateIndex& index) {
    index.TotalCountries = 2;
    for (int r = 1; r <= kRegions; ++r) {
        LoadStateTally(paths, index, r);
        if (r >= 3) index.TotalCountries += index.RegionStateCount[r];
    }
    for (int r = 1; r <= kRegions; ++r) LoadMapList(paths, index, r);
    for (int r = 1; r <= kRegions; ++r) LoadGroups(paths, index, r);
}

long LoadLocationCounts(const ProgramPaths& paths, ClimateIndex& index) {
    CountCityRecords(paths, index);
    LoadClimateIndex(paths, index);
    FillRegionSummaries(index);
    return index.TotalCities;
}

void FillRegionSummaries(ClimateIndex& index) {
    for (int r = 1; r <= kRegions; ++r) {
        const std::string states = std::to_string(index.RegionStateCount[r]);
        const std::string cities = std::to_string(index.RegionCityCount[r]);
        std::string& s = index.RegionSummary[r];
        if (r <= 2) {
            s = index.RegionName[r] + " Files: " + states +
                (r == 1 ? " States, " : " Provinces, ") + cities + " Cities.";
        } else if (r == 7) {
            s = index.RegionName[r] + ": " + cities + " Cities.";
        } else {
            s = index.RegionName[r] + ": " + states + " Countries, " + cities + " Cities.";
        }
    }
}

std::string TotalsLine(const ClimateIndex& index) {
    return "Totals = " + std::to_string(index.TotalCountries) + " Countries, " +
           std::to_string(index.TotalCities) + " Cities";
}

std::string RegionCountLine(const ClimateIndex& index, int region) {
    const char* word = region == 1   ? " states, "
                       : region == 2 ? " provinces, "
                       : region == 7 ? " country, "
                                     : " countries, ";
    return std::to_string(index.RegionStateCount[region]) + word +
           std::to_string(index.RegionCityCount[region]) + " cities";
}

ClimateHeader ParseClimateHeader(std::string_view text, int units) {
    std::size_t pos = 0;
    // Collects non-blank characters from `pos` and stops at the first blank
    // after at least one of them.
    auto nextToken = [&]() {
        std::string token;
        for (; pos < text.size(); ++pos) {
            if (text[pos] == ' ') {
                if (!token.empty()) break;
            } else {
                token += text[pos];
            }
        }
        return token;
    };
    ClimateHeader h;
    h.HeatingDegreeDays = static_cast<float>(NumVal(nextToken()));
    h.CoolingDegreeDays = static_cast<float>(NumVal(nextToken()));
    h.ClimateZone = std::string(text.size() > 3 ? text.substr(text.size() - 3) : text);
    if (units == 2) {
        // Degree days change base from deg F days to deg C days.
        h.HeatingDegreeDays = RoundOff(h.HeatingDegreeDays / 1.8, 0);
        h.CoolingDegreeDays = RoundOff(h.CoolingDegreeDays / 1.8, 0);
    }
    return h;
}

std::vector<std::string> SplitKeyLine(std::string_view line) {
    std::vector<std::string> fields;
    std::size_t i = 0;
    while (i <= line.size()) {
        while (i < line.size() && line[i] == ' ') ++i;
        std::string field;
        if (i < line.size() && line[i] == '"') {
            const std::size_t close = line.find('"', i + 1);
            const std::size_t end = close == std::string_view::npos ? line.size() : close;
            field = std::string(line.substr(i + 1, end - i - 1));
            i = line.find(',', end);
        } else {
            const std::size_t comma = line.find(',', i);
            field = std::string(RightTrimmed(line.substr(
                i, comma == std::string_view::npos ? std::string_view::npos : comma - i)));
            i = comma;
        }
        fields.push_back(std::move(field));
        if (i == std::string_view::npos) break;
        ++i;
    }
    return fields;
}

NameLine ParseNameLine(std::string_view line) {
    NameLine out;
    std::size_t i = 0;
    // A quoted item, or a bare one ending at a blank or comma.
    auto next = [&]() {
        while (i < line.size() && (line[i] == ' ' || line[i] == ',')) ++i;
        std::string item;
        if (i < line.size() && line[i] == '"') {
            const std::size_t close = line.find('"', i + 1);
            const std::size_t end = close == std::string_view::npos ? line.size() : close;
            item = std::string(line.substr(i + 1, end - i - 1));
            i = end == line.size() ? end : end + 1;
        } else {
            const std::size_t start = i;
            while (i < line.size() && line[i] != ' ' && line[i] != ',') ++i;
            item = std::string(line.substr(start, i - start));
        }
        return item;
    };
    out.name = next();
    out.wmo = next();
    out.latitude = NumVal(next());
    out.longitude = NumVal(next());
    out.standardMeridian = NumVal(next());
    out.elevation = NumVal(next());
    return out;
}

std::string CityOfNameField(std::string_view nameField) {
    return std::string(nameField.substr(0, nameField.find(',')));
}

std::string MarkerOfNameField(std::string_view nameField, const std::string& previous) {
    std::string marker = previous;
    for (std::size_t i = 0; i < nameField.size(); ++i) {
        const char c = nameField[i];
        if (c == '#' || c == '!' || c == '*' || c == '@') {
            marker = std::string(1, c);
            if (i + 1 < nameField.size() && nameField[i + 1] == '#') marker += '#';
        }
    }
    return marker;
}

std::array<double, 13> ParseMonthlyRow(std::string_view line) {
    std::array<double, 13> v{};
    std::size_t i = 0;
    for (int m = 1; m <= 12; ++m) {
        while (i < line.size() && (line[i] == ' ' || line[i] == ',')) ++i;
        const std::size_t start = i;
        while (i < line.size() && line[i] != ' ' && line[i] != ',') ++i;
        v[m] = NumVal(line.substr(start, i - start));
    }
    return v;
}

void WriteNameLineStart(LineWriter& out, std::string_view nameText, std::string_view wmo,
                        double latitude, double longitude, double timeZone) {
    out.Text("\"").Text(nameText.substr(0, kNameFieldWidth));
    out.Column(kNameCloseColumn).Text("\" ");
    out.Text("\"").Text(wmo).Text("\" ");
    out.Num(latitude).Num(longitude).Num(timeZone);
}

void WriteMonthlyRow(LineWriter& out, const std::array<double, 13>& values, bool solar) {
    for (int m = 1; m <= 12; ++m) {
        out.Text(FormatField(NumText(RoundOff(values[m], solar ? 0 : 1)), "@@@@@@"));
    }
    out.EndLine();
}

namespace {
bool IsTemperatureRow(int row) {
    return row == kDbAve || row == kDbMax || row == kDpAve;
}
bool IsDeviationRow(int row) {
    return row == kAveStd || row == kMaxStd || row == kDpStd;
}
}  // namespace

double MonthlyToScreen(int row, double v, int units) {
    if (units != 2) return v;
    if (IsTemperatureRow(row)) return UnitFactor::FahrenheitToCelsius(v);
    if (IsDeviationRow(row)) return UnitFactor::DeltaFToDeltaC(v);
    if (row == kSolar) return v * UnitFactor::SolarIpToSi;
    return v * UnitFactor::WindIpToSi;
}

double MonthlyToFile(int row, double v, int units) {
    if (units != 2) return v;
    if (IsTemperatureRow(row)) return UnitFactor::CelsiusToFahrenheit(v);
    if (IsDeviationRow(row)) return UnitFactor::DeltaCToDeltaF(v);
    if (row == kSolar) return v * UnitFactor::SolarSiToIp;
    return v * UnitFactor::WindSiToIp;
}

}  // namespace solvane
