#include "engine/epw_reader.h"

#include <vector>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"

namespace solvane::engine {
namespace {

std::vector<std::string_view> SplitCommas(std::string_view line) {
    std::vector<std::string_view> out;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= line.size(); ++i) {
        if (i == line.size() || line[i] == ',') {
            out.push_back(line.substr(start, i - start));
            start = i + 1;
        }
    }
    return out;
}

}  // namespace

WeatherYear ReadEpw(std::string_view content, const std::string& fileName) {
    const std::vector<std::string> lines = SplitLines(content);
    WeatherYear w;
    if (lines.empty()) throw ReadError(fileName, 1, "empty weather file");
    {
        const auto f = SplitCommas(lines[0]);
        if (f.size() < 10 || f[0] != "LOCATION")
            throw ReadError(fileName, 1, "not an EPW weather file: no LOCATION line");
        w.site.name = std::string(f[1]) + ", " + std::string(f[2]) + ", " + std::string(f[3]);
        w.site.latitude = NumVal(f[6]);
        w.site.longitude = NumVal(f[7]);
        w.site.timeZone = NumVal(f[8]);
        w.site.elevation = NumVal(f[9]);
    }
    std::size_t first = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].rfind("GROUND TEMPERATURES", 0) == 0) {
            const auto f = SplitCommas(lines[i]);
            // Depth records: depth, soil conductivity, density and heat capacity, 12 months.
            if (f.size() >= 18 && NumVal(f[1]) >= 1) {
                for (int m = 0; m < 12; ++m) w.groundTemperatures.push_back(NumVal(f[6 + m]));
            }
        }
        if (lines[i].rfind("DATA PERIODS", 0) == 0) {
            first = i + 1;
            break;
        }
    }
    if (first == 0) throw ReadError(fileName, 1, "no DATA PERIODS line");
    w.hours.reserve(kHoursPerYear);
    for (std::size_t i = first; i < lines.size() && w.hours.size() < kHoursPerYear; ++i) {
        if (lines[i].empty()) continue;
        const auto f = SplitCommas(lines[i]);
        const int lineNo = static_cast<int>(i) + 1;
        if (f.size() < 22) throw ReadError(fileName, lineNo, "short weather record");
        if (NumVal(f[1]) == 2 && NumVal(f[2]) == 29) continue;
        WeatherHour h;
        h.dryBulb = static_cast<float>(NumVal(f[6]));
        h.dewPoint = static_cast<float>(NumVal(f[7]));
        h.relativeHumidity = static_cast<float>(NumVal(f[8]));
        h.pressure = static_cast<float>(NumVal(f[9]));
        const double ir = NumVal(f[12]);
        h.globalHorizontal = static_cast<float>(NumVal(f[13]));
        h.directNormal = static_cast<float>(NumVal(f[14]));
        h.diffuseHorizontal = static_cast<float>(NumVal(f[15]));
        h.windDirection = static_cast<float>(NumVal(f[20]));
        h.windSpeed = static_cast<float>(NumVal(f[21]));
        h.opaqueSkyCover = f.size() > 23 ? static_cast<float>(NumVal(f[23])) : 0.0f;
        if (h.dryBulb > 70 || h.dryBulb < -70 || h.dewPoint > 70)
            throw ReadError(fileName, lineNo, "temperature out of range");
        if (h.pressure >= 999999 || h.pressure <= 0)
            h.pressure = static_cast<float>(StandardPressure(w.site.elevation));
        if (h.windSpeed >= 999) h.windSpeed = 0;
        if (h.opaqueSkyCover > 10) h.opaqueSkyCover = 5;
        if (h.globalHorizontal >= 9999) h.globalHorizontal = 0;
        if (h.directNormal >= 9999) h.directNormal = 0;
        if (h.diffuseHorizontal >= 9999) h.diffuseHorizontal = 0;
        h.horizontalInfrared = (ir >= 9999 || ir <= 0)
                                   ? static_cast<float>(EstimateHorizontalInfrared(
                                         h.dryBulb, h.dewPoint, h.opaqueSkyCover))
                                   : static_cast<float>(ir);
        w.hours.push_back(h);
    }
    if (w.hours.size() != kHoursPerYear)
        throw ReadError(
            fileName, static_cast<int>(lines.size()),
            "weather file holds " + std::to_string(w.hours.size()) + " hours, a year needs 8760");
    return w;
}

WeatherYear ReadEpwFile(const std::filesystem::path& path) {
    const auto text = ReadTextFile(path);
    if (!text) throw ReadError(path.string(), 0, "cannot open the weather file");
    return ReadEpw(*text, path.string());
}

}  // namespace solvane::engine
