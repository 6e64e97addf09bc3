#include "weather_format_writer.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "core/line_writer.h"

namespace solvane::engine::testing {
namespace {

// A record being filled: blanks, then fields placed right-aligned.
struct Record {
    std::string text;
    explicit Record(int length) : text(static_cast<std::size_t>(length), ' ') {}
    void Put(Columns c, const std::string& value) {
        if (static_cast<int>(value.size()) > c.width)
            throw std::logic_error("value " + value + " wider than its columns");
        text.replace(c.Last() - static_cast<int>(value.size()), value.size(), value);
    }
    void Put(Columns c, long value, bool zeroPad = false) {
        char buf[32];
        std::snprintf(buf, sizeof buf, zeroPad ? "%0*ld" : "%*ld", c.width, value);
        Put(c, std::string(buf));
    }
};

long Round(double v) {
    return std::lround(v);
}

void Date(int hourOfYear, int& month, int& day, int& hour) {
    const int d = hourOfYear / 24;
    month = MonthOfDay(d) + 1;
    day = d - kMonthStartDay[month - 1] + 1;
    hour = hourOfYear % 24 + 1;
}

long YearDigits(int year, int width) {
    return width == 2 ? year % 100 : year;
}

std::string DegreesMinutes(double v, int degreeWidth) {
    const double a = std::abs(v);
    int deg = static_cast<int>(a);
    int min = static_cast<int>(std::lround((a - deg) * 60));
    if (min == 60) {
        ++deg;
        min = 0;
    }
    char buf[16];
    std::snprintf(buf, sizeof buf, "%*d %02d", degreeWidth, deg, min);
    return buf;
}

}  // namespace

std::string FixedColumnRecords(const WeatherYear& w, const FixedColumnLayout& f,
                               const StationText& s, int first, int count) {
    LineWriter out;
    for (int i = first; i < first + count; ++i) {
        const WeatherHour& h = w.hours[i];
        int month = 0, day = 0, hour = 0;
        Date(i, month, day, hour);
        Record r(f.recordLength);
        r.Put(f.station, s.number);
        r.Put(f.year, YearDigits(s.year, f.year.width), true);
        r.Put(f.month, month, true);
        r.Put(f.day, day, true);
        r.Put(f.hour, hour, true);
        r.Put(f.extraterrestrial, 9999);
        r.Put(f.global, Round(h.globalHorizontal * 3.6));
        r.Put(f.direct, Round(h.directNormal * 3.6));
        r.Put(f.diffuse, Round(h.diffuseHorizontal * 3.6));
        r.Put(f.pressure, Round(h.pressure / 10.0));
        r.Put(f.dryBulb, Round(h.dryBulb * 10.0));
        r.Put(f.dewPoint, Round(h.dewPoint * 10.0));
        r.Put(f.windDirection, Round(h.windDirection));
        r.Put(f.windSpeed, Round(h.windSpeed * 10.0));
        // The year carries the opaque cover only: it stands for the total too.
        r.Put(f.totalSky, Round(h.opaqueSkyCover));
        r.Put(f.opaqueSky, Round(h.opaqueSkyCover));
        r.Put(f.snow, 0);
        out.Line(r.text);
    }
    return out.Str();
}

std::string IwecHeader(const Site& site, const StationText& s) {
    Record r(76);
    r.Put({1, 6}, s.number);
    r.text.replace(7, std::min<std::size_t>(30, s.city.size()), s.city.substr(0, 30));
    r.text.replace(38, std::min<std::size_t>(16, s.region.size()), s.region.substr(0, 16));
    char buf[16];
    std::snprintf(buf, sizeof buf, "%7.2f", site.latitude);
    r.Put({55, 7}, std::string(buf));
    std::snprintf(buf, sizeof buf, "%7.2f", site.longitude);
    r.Put({62, 7}, std::string(buf));
    std::snprintf(buf, sizeof buf, site.timeZone > -10 ? "%4.1f" : "%4.0f", site.timeZone);
    r.Put({69, 4}, std::string(buf));
    r.Put({73, 4}, Round(site.elevation));
    return r.text + "\r\n";
}

std::string Wyec2File(const WeatherYear& w, const StationText& s) {
    return FixedColumnRecords(w, kWyec2Layout, s, 0, kHoursPerYear);
}

std::string IwecFile(const WeatherYear& w, const StationText& s) {
    return IwecHeader(w.site, s) + FixedColumnRecords(w, kIwecLayout, s, 0, kHoursPerYear);
}

std::string Tmy2Header(const Site& site, const StationText& s) {
    Record r(59);
    r.Put({2, 5}, s.number);
    r.text.replace(7, std::min<std::size_t>(22, s.city.size()), s.city.substr(0, 22));
    r.text.replace(30, std::min<std::size_t>(2, s.region.size()), s.region.substr(0, 2));
    r.Put({34, 3}, Round(site.timeZone));
    r.text[37] = site.latitude >= 0 ? 'N' : 'S';
    r.Put({40, 5}, DegreesMinutes(site.latitude, 2));
    r.text[45] = site.longitude < 0 ? 'W' : 'E';
    r.Put({48, 6}, DegreesMinutes(site.longitude, 3));
    r.Put({56, 4}, Round(site.elevation));
    return r.text + "\r\n";
}

std::string Tmy2Records(const WeatherYear& w, const StationText& s, int first, int count) {
    LineWriter out;
    for (int i = first; i < first + count; ++i) {
        const WeatherHour& h = w.hours[i];
        int month = 0, day = 0, hour = 0;
        Date(i, month, day, hour);
        Record r(142);
        r.Put({2, 2}, s.year % 100, true);
        r.Put({4, 2}, month, true);
        r.Put({6, 2}, day, true);
        r.Put({8, 2}, hour, true);
        // Each element is followed by its source letter and uncertainty
        // digit; a converted year knows neither: "?0".
        const auto element = [&r](int first, int width, long value) {
            r.Put({first, width}, value);
            r.Put({first + width, 2}, "?0");
        };
        r.Put({10, 4}, 9999);
        r.Put({14, 4}, 9999);
        element(18, 4, Round(h.globalHorizontal));
        element(24, 4, Round(h.directNormal));
        element(30, 4, Round(h.diffuseHorizontal));
        element(36, 4, 9999);
        element(42, 4, 9999);
        element(48, 4, 9999);
        element(54, 4, 9999);
        element(60, 2, Round(h.opaqueSkyCover));
        element(64, 2, Round(h.opaqueSkyCover));
        element(68, 4, Round(h.dryBulb * 10.0));
        element(74, 4, Round(h.dewPoint * 10.0));
        element(80, 3, Round(h.relativeHumidity));
        element(85, 4, Round(h.pressure / 100.0));
        element(91, 3, Round(h.windDirection));
        element(96, 3, Round(h.windSpeed * 10.0));
        element(101, 4, 9999);
        element(107, 5, 99999);
        r.Put({114, 10}, "9999999999");
        element(124, 3, 999);
        element(129, 3, 999);
        element(134, 3, 999);
        element(139, 2, 99);
        out.Line(r.text);
    }
    return out.Str();
}

namespace {

const StationText kDenver{"72565", "DENVER INTL AP", "CO", 1995};
const StationText kDenverWmo{"725650", "DENVER INTL AP", "USA", 1995};
// 1 January 1 to 6 a.m. and 1 July 10 a.m. to 3 p.m.
constexpr int kWinter = 0;
constexpr int kSummer = 181 * 24 + 9;
constexpr int kCount = 6;

}  // namespace

std::string Wyec2HelpSample(const WeatherYear& denver) {
    LineWriter out;
    out.Line("WYEC2 WEATHER FILE FORMAT (for Recorded Weather, format WYEC2)");
    out.Line();
    out.Line("One line of 116 columns for each hour of the year, 1 January hour 1 first,");
    out.Line("no header. Hours are local standard time, 1 to 24 (the hour ending then).");
    out.Line("Radiation is the energy of that hour; temperatures, pressure and wind are");
    out.Line("observed at its end. Columns read by the simulation:");
    out.Line("  1-5   station number          7-14  year, month, day, hour (YYMMDDHH)");
    out.Line(" 15-18  extraterrestrial (kJ/m2) 19-22 global horizontal (kJ/m2)");
    out.Line(" 25-28  direct normal (kJ/m2)   31-34  diffuse horizontal (kJ/m2)");
    out.Line(" 84-88  station pressure (10 Pa) 90-93 dry bulb (0.1 C)");
    out.Line(" 95-98  dew point (0.1 C)      100-102 wind direction (degrees from north)");
    out.Line("104-107 wind speed (0.1 m/s)   109-110 total, 112-113 opaque sky cover (tenths)");
    out.Line("The column after each value holds its flags. Missing values are nines");
    out.Line("(9999, 99999 pressure, 999 wind direction, 99 sky cover). Columns 37-83");
    out.Line("(illuminance, ceiling, visibility, present weather) are not used and are");
    out.Line("left blank in this example. The file carries no latitude or longitude:");
    out.Line("the project's location is used.");
    out.Line();
    out.Line("Example (Denver, 1 January 1-6 a.m. and 1 July 10 a.m.-3 p.m.):");
    out.Text(FixedColumnRecords(denver, kWyec2Layout, kDenver, kWinter, kCount));
    out.Text(FixedColumnRecords(denver, kWyec2Layout, kDenver, kSummer, kCount));
    return out.Str();
}

std::string IwecHelpSample(const WeatherYear& denver) {
    LineWriter out;
    out.Line("IWEC WEATHER FILE FORMAT (for Recorded Weather, format IWEC)");
    out.Line();
    out.Line("A header line of 76 columns, then one line of 150 columns for each hour,");
    out.Line("1 January hour 1 first, local standard time, hours 1 to 24. IWEC data");
    out.Line("given as an EPW file (LOCATION line first) is read as EPW.");
    out.Line("Header: 1-6 WMO number, 8-37 station, 39-54 country, 55-61 latitude");
    out.Line("(degrees, north positive), 62-68 longitude (degrees, east positive),");
    out.Line("69-72 time zone (hours from UTC), 73-76 elevation (m).");
    out.Line("Hourly lines, columns read by the simulation:");
    out.Line("  1-6   WMO number              8-17  year, month, day, hour (YYYYMMDDHH)");
    out.Line(" 22-25  global horizontal (kJ/m2) 28-31 direct normal (kJ/m2)");
    out.Line(" 34-37  diffuse horizontal (kJ/m2) 87-91 station pressure (10 Pa)");
    out.Line(" 93-96  dry bulb (0.1 C)        98-101 dew point (0.1 C)");
    out.Line("103-105 wind direction (degrees) 107-110 wind speed (0.1 m/s)");
    out.Line("112-113 total, 115-116 opaque sky cover (tenths)");
    out.Line("Missing values are nines as in WYEC2; columns 119-150 are not used.");
    out.Line();
    out.Line("Example (Denver, 1 January 1-6 a.m. and 1 July 10 a.m.-3 p.m.):");
    out.Text(IwecHeader(denver.site, kDenverWmo));
    out.Text(FixedColumnRecords(denver, kIwecLayout, kDenverWmo, kWinter, kCount));
    out.Text(FixedColumnRecords(denver, kIwecLayout, kDenverWmo, kSummer, kCount));
    return out.Str();
}

std::string Tmy2HelpSample(const WeatherYear& denver) {
    LineWriter out;
    out.Line("TMY2 FORMAT (the hourly layout; for Recorded Weather give the same data as");
    out.Line("an EPW file, *.epw)");
    out.Line();
    out.Line("A header line (2-6 station, 8-29 city, 31-32 state, 34-36 time zone,");
    out.Line("38-44 latitude N/S degrees minutes, 46-53 longitude W/E degrees minutes,");
    out.Line("56-59 elevation m), then one line of 142 columns for each hour, local");
    out.Line("standard time, hours 1 to 24:");
    out.Line("  2-9   year, month, day, hour   10-17 extraterrestrial (Wh/m2)");
    out.Line(" 18-21  global, 24-27 direct normal, 30-33 diffuse horizontal (Wh/m2)");
    out.Line(" 60-61  total, 64-65 opaque sky cover (tenths)");
    out.Line(" 68-71  dry bulb, 74-77 dew point (0.1 C)  80-82 relative humidity (%)");
    out.Line(" 85-88  pressure (mbar)  91-93 wind direction  96-98 wind speed (0.1 m/s)");
    out.Line("Each value is followed by a source letter and an uncertainty digit;");
    out.Line("this example, converted from an EPW file, gives ?0 (unknown) and nines");
    out.Line("for what it does not carry (illuminance, visibility, ceiling, weather).");
    out.Line();
    out.Line("Example (Denver, 1 January 1-6 a.m. and 1 July 10 a.m.-3 p.m.):");
    out.Text(Tmy2Header(denver.site, kDenver));
    out.Text(Tmy2Records(denver, kDenver, kWinter, kCount));
    out.Text(Tmy2Records(denver, kDenver, kSummer, kCount));
    return out.Str();
}

}  // namespace solvane::engine::testing
