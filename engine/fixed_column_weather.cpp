#include "engine/fixed_column_weather.h"

#include <cmath>
#include <vector>

#include "core/item_reader.h"
#include "core/numeric_helpers.h"
#include "core/text_file.h"
#include "engine/custom_weather.h"
#include "engine/epw_reader.h"
#include "engine/weather_limits.h"

namespace solvane::engine {

// clang-format off
const FixedColumnLayout kWyec2Layout{
    "WYEC2", 116,
    {1, 5}, {7, 2}, {9, 2}, {11, 2}, {13, 2},
    {15, 4}, {19, 4}, {25, 4}, {31, 4},
    {75, 8}, {84, 5}, {90, 4}, {95, 4}, {100, 3}, {104, 4},
    {109, 2}, {112, 2}, {115, 1},
    0};

const FixedColumnLayout kIwecLayout{
    "IWEC", 150,
    {1, 6}, {8, 4}, {12, 2}, {14, 2}, {16, 2},
    {18, 4}, {22, 4}, {28, 4}, {34, 4},
    {78, 8}, {87, 5}, {93, 4}, {98, 4}, {103, 3}, {107, 4},
    {112, 2}, {115, 2}, {118, 1},
    1};
// clang-format on

namespace {

constexpr double kKilojoulePerHourToWatt = 1.0 / 3.6;  // kJ/m2 in an hour -> W/m2

std::string ColumnText(Columns c) {
    return std::to_string(c.first) + "-" + std::to_string(c.Last());
}

// A whole number in fixed columns: blanks around it, an optional sign and
// digits only. Anything else ends the read with the columns named.
int FieldValue(const std::string& line, Columns c, const char* what, const std::string& fileName,
               int lineNo) {
    const std::string raw =
        line.size() >= static_cast<std::size_t>(c.first) ? line.substr(c.first - 1, c.width) : "";
    std::size_t b = raw.find_first_not_of(' ');
    std::size_t e = raw.find_last_not_of(' ');
    bool ok = b != std::string::npos;
    long value = 0;
    if (ok) {
        std::size_t i = b;
        const bool negative = raw[i] == '-';
        if (raw[i] == '-' || raw[i] == '+') ++i;
        ok = i <= e;
        for (; ok && i <= e; ++i) {
            if (raw[i] < '0' || raw[i] > '9')
                ok = false;
            else
                value = value * 10 + (raw[i] - '0');
        }
        if (negative) value = -value;
    }
    if (!ok)
        throw ReadError(
            fileName, lineNo,
            std::string("bad ") + what + " in columns " + ColumnText(c) + ": \"" + raw + "\"");
    return static_cast<int>(value);
}

// Elements as the fixed-column forms record them (NOAA TD 9734 encoding):
// radiation in kJ/m2, wind speed in tenths of m/s; the limits are those of
// the EPW data dictionary in these units, the missing marks all nines.
constexpr WeatherElement kGlobalKj{"global radiation", "kJ/m2", 0, 9999, false, 9999};
constexpr WeatherElement kDirectKj{"direct normal radiation", "kJ/m2", 0, 9999, false, 9999};
constexpr WeatherElement kDiffuseKj{"diffuse radiation", "kJ/m2", 0, 9999, false, 9999};
constexpr WeatherElement kWindTenths{"wind speed", "tenths of m/s", 0, 400, false, 9999};
constexpr WeatherElement kDirection{"wind direction", "degrees", 0, 360, false, 999};
constexpr WeatherElement kSky{"opaque sky cover", "tenths", 0, 10, false, 99};
constexpr WeatherElement kPressure10Pa{"station pressure", "10 Pa", 3100, 12000, true, 99999};

double Radiation(int kj, const WeatherElement& e, const std::string& fileName, int lineNo) {
    CheckWeatherValue(kj, e, fileName, lineNo);
    return IsMissing(e, kj) ? 0.0 : kj * kKilojoulePerHourToWatt;
}

// The hourly records of either form, 1 January hour 1 first; a leap day is
// dropped as the EPW reader does.
void ReadRecords(const std::vector<std::string>& lines, const FixedColumnLayout& f,
                 const std::string& fileName, WeatherYear& w) {
    const double standardPressure = StandardPressure(w.site.elevation);
    w.hours.reserve(kHoursPerYear);
    // The last column read: the snow cover flag may be cut off with the
    // trailing blanks, the opaque sky cover may not.
    const std::size_t needed = static_cast<std::size_t>(f.opaqueSky.Last());
    for (std::size_t i = f.headerLines; i < lines.size(); ++i) {
        const std::string& line = lines[i];
        const int lineNo = static_cast<int>(i) + 1;
        if (line.find_first_not_of(" \t") == std::string::npos) continue;
        if (w.hours.size() == kHoursPerYear) break;
        if (line.size() < needed)
            throw ReadError(fileName, lineNo,
                            std::string(f.formatName) +
                                " record cut short: " + std::to_string(line.size()) +
                                " characters, a record has " + std::to_string(f.recordLength));
        const int month = FieldValue(line, f.month, "month", fileName, lineNo);
        const int day = FieldValue(line, f.day, "day", fileName, lineNo);
        const int hour = FieldValue(line, f.hour, "hour", fileName, lineNo);
        if (month == 2 && day == 29) continue;
        const int n = static_cast<int>(w.hours.size());
        const int expectDay = n / 24;
        const int expectMonth = MonthOfDay(expectDay) + 1;
        const int expectDate = expectDay - kMonthStartDay[expectMonth - 1] + 1;
        if (month != expectMonth || day != expectDate || hour != n % 24 + 1)
            throw ReadError(fileName, lineNo,
                            "hour out of order: expected month " + std::to_string(expectMonth) +
                                ", day " + std::to_string(expectDate) + ", hour " +
                                std::to_string(n % 24 + 1));
        WeatherHour h;
        const int dryBulb = FieldValue(line, f.dryBulb, "dry bulb", fileName, lineNo);
        const int dewPoint = FieldValue(line, f.dewPoint, "dew point", fileName, lineNo);
        if (dryBulb >= 9999 || dewPoint >= 9999)
            throw ReadError(fileName, lineNo, "dry bulb or dew point missing (9999)");
        h.dryBulb =
            static_cast<float>(CheckWeatherValue(dryBulb / 10.0, epw::kDryBulb, fileName, lineNo));
        h.dewPoint = static_cast<float>(
            CheckWeatherValue(dewPoint / 10.0, epw::kDewPoint, fileName, lineNo));
        const int pressure = FieldValue(line, f.pressure, "station pressure", fileName, lineNo);
        // A pressure of 0 is also taken for a missing one, as some files give it.
        if (pressure != 0) CheckWeatherValue(pressure, kPressure10Pa, fileName, lineNo);
        h.pressure = static_cast<float>(pressure == 0 || IsMissing(kPressure10Pa, pressure)
                                            ? standardPressure
                                            : pressure * 10.0);
        h.globalHorizontal = static_cast<float>(
            Radiation(FieldValue(line, f.global, "global radiation", fileName, lineNo), kGlobalKj,
                      fileName, lineNo));
        h.directNormal = static_cast<float>(
            Radiation(FieldValue(line, f.direct, "direct normal radiation", fileName, lineNo),
                      kDirectKj, fileName, lineNo));
        h.diffuseHorizontal = static_cast<float>(
            Radiation(FieldValue(line, f.diffuse, "diffuse radiation", fileName, lineNo),
                      kDiffuseKj, fileName, lineNo));
        const int direction = static_cast<int>(
            CheckWeatherValue(FieldValue(line, f.windDirection, "wind direction", fileName, lineNo),
                              kDirection, fileName, lineNo));
        const int speed = static_cast<int>(
            CheckWeatherValue(FieldValue(line, f.windSpeed, "wind speed", fileName, lineNo),
                              kWindTenths, fileName, lineNo));
        h.windDirection = static_cast<float>(IsMissing(kDirection, direction) ? 0 : direction);
        h.windSpeed = static_cast<float>(IsMissing(kWindTenths, speed) ? 0.0 : speed / 10.0);
        const int opaque = static_cast<int>(
            CheckWeatherValue(FieldValue(line, f.opaqueSky, "opaque sky cover", fileName, lineNo),
                              kSky, fileName, lineNo));
        h.opaqueSkyCover = static_cast<float>(IsMissing(kSky, opaque) ? 5 : opaque);
        h.relativeHumidity = static_cast<float>(RelativeHumidity(h.dryBulb, h.dewPoint));
        // Neither form records the long-wave from the sky: the same
        // estimate from dew point and cloud as a missing EPW value.
        h.horizontalInfrared =
            static_cast<float>(EstimateHorizontalInfrared(h.dryBulb, h.dewPoint, h.opaqueSkyCover));
        w.hours.push_back(h);
    }
    if (w.hours.size() != kHoursPerYear)
        throw ReadError(fileName, static_cast<int>(lines.size()),
                        std::string(f.formatName) + " file ends after " +
                            std::to_string(w.hours.size()) + " hours, a year needs 8760");
}

std::string Trimmed(const std::string& line, Columns c) {
    if (line.size() < static_cast<std::size_t>(c.first)) return {};
    const std::string raw = line.substr(c.first - 1, c.width);
    const std::size_t b = raw.find_first_not_of(' ');
    if (b == std::string::npos) return {};
    return raw.substr(b, raw.find_last_not_of(' ') - b + 1);
}

double HeaderNumber(const std::string& line, Columns c, const char* what,
                    const std::string& fileName) {
    const std::string t = Trimmed(line, c);
    const double v = NumVal(t);
    // NumVal takes a numeric prefix; the whole field must be that number.
    if (t.empty() || t.find_first_not_of("+-.0123456789") != std::string::npos ||
        (v == 0 && t.find_first_of("123456789") != std::string::npos))
        throw ReadError(fileName, 1,
                        std::string("bad ") + what + " in columns " + ColumnText(c) +
                            " of the IWEC header: \"" + t + "\"");
    return v;
}

}  // namespace

WeatherYear ReadWyec2(std::string_view content, const std::string& fileName,
                      const Site& projectSite) {
    const std::vector<std::string> lines = SplitLines(content);
    if (lines.empty()) throw ReadError(fileName, 1, "empty weather file");
    WeatherYear w;
    w.site = projectSite;
    const std::string station = Trimmed(lines[0], kWyec2Layout.station);
    w.site.name = "WYEC2 STATION " + station;
    ReadRecords(lines, kWyec2Layout, fileName, w);
    return w;
}

WeatherYear ReadIwec(std::string_view content, const std::string& fileName) {
    const std::vector<std::string> lines = SplitLines(content);
    if (lines.empty()) throw ReadError(fileName, 1, "empty weather file");
    const std::string& head = lines[0];
    if (head.size() < 76)
        throw ReadError(fileName, 1,
                        "IWEC header cut short: " + std::to_string(head.size()) +
                            " characters, the header has 76");
    WeatherYear w;
    const std::string city = Trimmed(head, {8, 30});
    const std::string country = Trimmed(head, {39, 16});
    w.site.name = country.empty() ? city : city + ", " + country;
    w.site.latitude = HeaderNumber(head, {55, 7}, "latitude", fileName);
    w.site.longitude = HeaderNumber(head, {62, 7}, "longitude", fileName);
    w.site.timeZone = HeaderNumber(head, {69, 4}, "time zone", fileName);
    w.site.elevation = HeaderNumber(head, {73, 4}, "elevation", fileName);
    if (std::abs(w.site.latitude) > 90 || std::abs(w.site.longitude) > 180 ||
        std::abs(w.site.timeZone) > 14)
        throw ReadError(fileName, 1, "IWEC header: latitude, longitude or time zone out of range");
    ReadRecords(lines, kIwecLayout, fileName, w);
    return w;
}

WeatherYear ReadWeatherOfType(int weatherType, std::string_view content,
                              const std::string& fileName, const Site& projectSite,
                              const std::string& controlFileName) {
    switch (weatherType) {
        case 1:
        case 4:
            return ReadRecordedWeather(content, fileName);
        case 2:
            return ReadWyec2(content, fileName, projectSite);
        case 3:
            if (content.rfind("LOCATION,", 0) == 0) return ReadEpw(content, fileName);
            return ReadIwec(content, fileName);
        default:
            throw ReadError(controlFileName, 2,
                            "unknown recorded weather type " + std::to_string(weatherType) +
                                " (1 EPW, 2 WYEC2, 3 IWEC, 4 custom)");
    }
}

}  // namespace solvane::engine
