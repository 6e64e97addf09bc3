#include "engine/custom_weather.h"

#include "core/item_reader.h"
#include "core/text_file.h"
#include "engine/epw_reader.h"

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
        ItemReader in(lines[1], fileName);
        w.site.name = in.NextText();
        w.site.latitude = in.NextNumber();
        w.site.longitude = in.NextNumber();
        w.site.timeZone = in.NextNumber();
        w.site.elevation = in.NextNumber() * 0.3048;
    }
    const double pressure = StandardPressure(w.site.elevation);
    w.hours.reserve(kHoursPerYear);
    for (int i = 0; i < kHoursPerYear; ++i) {
        const int lineNo = i + 4;
        ItemReader in(lines[3 + i], fileName);
        const int month = in.NextInt(), day = in.NextInt(), hour = in.NextInt();
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
        h.dryBulb = static_cast<float>(FToC(in.NextNumber()));
        h.dewPoint = static_cast<float>(FToC(in.NextNumber()));
        h.globalHorizontal = static_cast<float>(in.NextNumber() * kBtuhFt2ToW);
        h.directNormal = static_cast<float>(in.NextNumber() * kBtuhFt2ToW);
        h.diffuseHorizontal = static_cast<float>(in.NextNumber() * kBtuhFt2ToW);
        h.windSpeed = static_cast<float>(in.NextNumber() * kMphToMs);
        h.windDirection = static_cast<float>(in.NextNumber());
        h.opaqueSkyCover = static_cast<float>(in.NextNumber());
        if (h.dryBulb < -70 || h.dryBulb > 70 || h.dewPoint > h.dryBulb + 0.5f)
            throw ReadError(fileName, lineNo, "dry bulb or dew point out of range");
        if (h.globalHorizontal < 0 || h.directNormal < 0 || h.diffuseHorizontal < 0 ||
            h.opaqueSkyCover < 0 || h.opaqueSkyCover > 10)
            throw ReadError(fileName, lineNo, "radiation or sky cover out of range");
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
