#include "engine/epw_reader.h"

#include <algorithm>
#include <vector>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "engine/weather_limits.h"

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
        // The station's limits, from the same data dictionary.
        w.site.latitude =
            WeatherValue(f[6], {"latitude", "degrees", -90, 90, false, 0}, fileName, 1);
        w.site.longitude =
            WeatherValue(f[7], {"longitude", "degrees", -180, 180, false, 0}, fileName, 1);
        w.site.timeZone =
            WeatherValue(f[8], {"time zone", "hours", -12, 14, false, 0}, fileName, 1);
        w.site.elevation =
            WeatherValue(f[9], {"elevation", "m", -1000, 9999.9, false, 0}, fileName, 1);
    }
    std::size_t first = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].rfind("GROUND TEMPERATURES", 0) == 0) {
            const auto f = SplitCommas(lines[i]);
            // Depth records: depth, soil conductivity, density and heat capacity, 12 months.
            if (f.size() >= 18 && NumVal(f[1]) >= 1) {
                for (int m = 0; m < 12; ++m)
                    w.groundTemperatures.push_back(
                        WeatherValue(f[6 + m], {"ground temperature", "C", -70, 70, true, 0},
                                     fileName, static_cast<int>(i) + 1));
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
        const auto value = [&](std::size_t field, const WeatherElement& e) {
            return WeatherValue(f[field], e, fileName, lineNo);
        };
        const double dryBulb = value(6, epw::kDryBulb);
        const double dewPoint = value(7, epw::kDewPoint);
        if (IsMissing(epw::kDryBulb, dryBulb) || IsMissing(epw::kDewPoint, dewPoint))
            throw ReadError(fileName, lineNo, "dry bulb or dew point missing (99.9)");
        h.dryBulb = static_cast<float>(dryBulb);
        h.dewPoint = static_cast<float>(dewPoint);
        const double rh = value(8, epw::kRelativeHumidity);
        h.relativeHumidity = static_cast<float>(IsMissing(epw::kRelativeHumidity, rh)
                                                    ? RelativeHumidity(dryBulb, dewPoint)
                                                    : std::min(rh, 100.0));
        const double pressure = value(9, epw::kPressure);
        h.pressure = static_cast<float>(
            IsMissing(epw::kPressure, pressure) ? StandardPressure(w.site.elevation) : pressure);
        const double ir = value(12, epw::kInfrared);
        // Radiation: a missing hour counts as none.
        const auto radiation = [&](std::size_t field, const WeatherElement& e) {
            const double v = value(field, e);
            return static_cast<float>(IsMissing(e, v) ? 0.0 : v);
        };
        h.globalHorizontal = radiation(13, epw::kGlobal);
        h.directNormal = radiation(14, epw::kDirect);
        h.diffuseHorizontal = radiation(15, epw::kDiffuse);
        const double direction = value(20, epw::kWindDirection);
        const double speed = value(21, epw::kWindSpeed);
        h.windDirection =
            static_cast<float>(IsMissing(epw::kWindDirection, direction) ? 0 : direction);
        h.windSpeed = static_cast<float>(IsMissing(epw::kWindSpeed, speed) ? 0 : speed);
        const double opaque = f.size() > 23 ? value(23, epw::kOpaqueSky) : 99;
        h.opaqueSkyCover = static_cast<float>(IsMissing(epw::kOpaqueSky, opaque) ? 5 : opaque);
        h.horizontalInfrared = (IsMissing(epw::kInfrared, ir) || ir <= 0)
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
