#include "engine/custom_weather.h"

#include <algorithm>

#include "core/item_reader.h"
#include "core/text_file.h"
#include "engine/epw_reader.h"
#include "engine/weather_limits.h"

namespace solvane::engine {
namespace {

constexpr double kBtuhFt2ToW = 3.154591;  // Btu/h sq.ft -> W/m2
constexpr double kMphToMs = 0.44704;

double FToC(double f) {
    return (f - 32.0) / 1.8;
}

}  // namespace

WeatherYear ReadCustomWeather(std::string_view content, const std::string& fileName) {
    const std::vector<std::string> lines = SplitLines(content);
    if (lines.empty() || lines[0].rfind("CUSTOM WEATHER", 0) != 0)
        throw ReadError(fileName, 1, "not a custom weather file: line 1 must read CUSTOM WEATHER");
    if (lines.size() < 3 + kHoursPerYear)
        throw ReadError(fileName, static_cast<int>(lines.size()),
                        "custom weather file holds fewer than 8760 hours");
    WeatherYear w;
    {
        if (std::count(lines[1].begin(), lines[1].end(), ',') < 4)
            throw ReadError(fileName, 2,
                            "station line must give name, latitude, longitude, time zone and "
                            "elevation");
        ItemReader in(lines[1], fileName);
        w.site.name = in.NextText();
        w.site.latitude =
            WeatherValue(in.NextText(), {"latitude", "degrees", -90, 90, false, 0}, fileName, 2);
        w.site.longitude =
            WeatherValue(in.NextText(), {"longitude", "degrees", -180, 180, false, 0}, fileName, 2);
        w.site.timeZone =
            WeatherValue(in.NextText(), {"time zone", "hours", -12, 14, false, 0}, fileName, 2);
        w.site.elevation =
            WeatherValue(in.NextText(), {"elevation", "ft", -3300, 32800, false, 0}, fileName, 2) *
            0.3048;
    }
    const double pressure = StandardPressure(w.site.elevation);
    w.hours.reserve(kHoursPerYear);
    for (int i = 0; i < kHoursPerYear; ++i) {
        const int lineNo = i + 4;
        const std::string& record = lines[3 + i];
        const auto fields = std::count(record.begin(), record.end(), ',') + 1;
        if (fields < 11)
            throw ReadError(fileName, lineNo,
                            "record holds " + std::to_string(fields) + " of its 11 fields");
        ItemReader in(record, fileName);
        const auto whole = [&](const char* name, double hi) {
            return static_cast<int>(
                WeatherValue(in.NextText(), {name, "", 1, hi, false, 0}, fileName, lineNo));
        };
        const int month = whole("month", 12), day = whole("day", 31), hour = whole("hour", 24);
        const int expectDay = i / 24;
        const int expectMonth = MonthOfDay(expectDay) + 1;
        if (month != expectMonth || day != expectDay - kMonthStartDay[expectMonth - 1] + 1 ||
            hour != i % 24 + 1)
            throw ReadError(fileName, lineNo,
                            "hour out of order: expected month " + std::to_string(expectMonth) +
                                ", day " +
                                std::to_string(expectDay - kMonthStartDay[expectMonth - 1] + 1) +
                                ", hour " + std::to_string(i % 24 + 1));
        WeatherHour h;
        const auto value = [&](const WeatherElement& e) {
            return WeatherValue(in.NextText(), e, fileName, lineNo);
        };
        h.dryBulb = static_cast<float>(FToC(value(custom::kDryBulb)));
        h.dewPoint = static_cast<float>(FToC(value(custom::kDewPoint)));
        h.globalHorizontal = static_cast<float>(value(custom::kGlobal) * kBtuhFt2ToW);
        h.directNormal = static_cast<float>(value(custom::kDirect) * kBtuhFt2ToW);
        h.diffuseHorizontal = static_cast<float>(value(custom::kDiffuse) * kBtuhFt2ToW);
        h.windSpeed = static_cast<float>(value(custom::kWindSpeed) * kMphToMs);
        h.windDirection = static_cast<float>(value(custom::kWindDirection));
        h.opaqueSkyCover = static_cast<float>(value(custom::kOpaqueSky));
        if (h.dewPoint > h.dryBulb + 0.5f)
            throw ReadError(fileName, lineNo, "dew point above the dry bulb");
        h.relativeHumidity = static_cast<float>(RelativeHumidity(h.dryBulb, h.dewPoint));
        h.pressure = static_cast<float>(pressure);
        h.horizontalInfrared =
            static_cast<float>(EstimateHorizontalInfrared(h.dryBulb, h.dewPoint, h.opaqueSkyCover));
        w.hours.push_back(h);
    }
    return w;
}

WeatherYear ReadRecordedWeather(std::string_view content, const std::string& fileName) {
    if (content.rfind("LOCATION,", 0) == 0) return ReadEpw(content, fileName);
    if (content.rfind("CUSTOM WEATHER", 0) == 0) return ReadCustomWeather(content, fileName);
    throw ReadError(fileName, 1,
                    "recorded weather must be in the EPW form (LOCATION line) or the custom form "
                    "(CUSTOM WEATHER line)");
}

}  // namespace solvane::engine
