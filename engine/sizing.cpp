#include "engine/sizing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/numeric_helpers.h"
#include "engine/psychrometrics.h"

namespace solvane::engine {

namespace {

bool Number(const std::string& text, double& value) {
    if (text.find_first_not_of(' ') == std::string::npos) return false;
    value = NumVal(text);
    return true;
}

double FromF(double f) {
    return (f - 32.0) / 1.8;
}

// Week day (0 Sunday) of 1 January that makes `day` a Wednesday.
int FirstWeekdayFor(int day) {
    return ((3 - day % 7) % 7 + 7) % 7;
}

}  // namespace

bool DesignConditionsOf(const std::string& db, const std::string& wb, const std::string& winter,
                        DesignConditions& out) {
    double a = 0, b = 0, c = 0;
    if (!Number(db, a) || !Number(wb, b) || !Number(winter, c)) return false;
    out.summerDryBulb = FromF(a);
    out.summerWetBulb = std::min(FromF(b), out.summerDryBulb);
    out.winterDryBulb = FromF(c);
    return true;
}

WeatherYear CoolingDesignWeather(const WeatherYear& base, const DesignConditions& c, int* dayOut,
                                 double* rangeOut) {
    WeatherYear w = base;
    const int month = base.site.latitude < 0 ? 0 : 6;
    int best = kMonthStartDay[month];
    double bestSun = -1, range = 0;
    const int days = kMonthStartDay[month + 1] - kMonthStartDay[month];
    for (int d = kMonthStartDay[month]; d < kMonthStartDay[month + 1]; ++d) {
        double sun = 0, lo = 1e9, hi = -1e9;
        for (int h = 0; h < 24; ++h) {
            const WeatherHour& x = base.hours[d * 24 + h];
            sun += x.globalHorizontal;
            lo = std::min<double>(lo, x.dryBulb), hi = std::max<double>(hi, x.dryBulb);
        }
        range += (hi - lo) / days;
        if (sun > bestSun) bestSun = sun, best = d;
    }
    const double p = StandardPressure(base.site.elevation);
    const double hum = HumidityRatioOfWetBulb(c.summerDryBulb, c.summerWetBulb, p);
    for (int h = 0; h < 24; ++h) {
        WeatherHour& x = w.hours[best * 24 + h];
        // Hour ending h + 1: the peak at 3 p.m., the low at 3 a.m.
        const double t =
            c.summerDryBulb -
            range / 2.0 * (1.0 - std::cos(2.0 * std::numbers::pi * (h + 1 - 15) / 24.0));
        const double rh = RhOfHumidityRatio(t, hum, p);
        x.dryBulb = static_cast<float>(t);
        x.relativeHumidity = static_cast<float>(rh);
        const double pw = p * hum / (0.621945 + hum);
        const double g = std::log(std::max(pw, 1.0) / 610.94);
        x.dewPoint = static_cast<float>(std::min(243.04 * g / (17.625 - g), t));
        x.pressure = static_cast<float>(p);
        x.opaqueSkyCover = 0;
        x.horizontalInfrared = static_cast<float>(EstimateHorizontalInfrared(t, x.dewPoint, 0));
    }
    if (dayOut) *dayOut = best;
    if (rangeOut) *rangeOut = range;
    return w;
}

WeatherYear HeatingDesignWeather(const WeatherYear& base, const DesignConditions& c, int* dayOut) {
    WeatherYear w = base;
    const int day = base.site.latitude < 0 ? kMonthStartDay[6] + 20 : 20;  // 21 July or January
    const double p = StandardPressure(base.site.elevation);
    for (int h = 0; h < 24; ++h) {
        WeatherHour& x = w.hours[day * 24 + h];
        x.dryBulb = static_cast<float>(c.winterDryBulb);
        x.dewPoint = static_cast<float>(c.winterDryBulb - 2.0);
        x.relativeHumidity = static_cast<float>(RelativeHumidity(c.winterDryBulb, x.dewPoint));
        x.pressure = static_cast<float>(p);
        x.globalHorizontal = x.directNormal = x.diffuseHorizontal = 0;
        x.opaqueSkyCover = 10;
        x.horizontalInfrared =
            static_cast<float>(EstimateHorizontalInfrared(c.winterDryBulb, x.dewPoint, 10));
    }
    if (dayOut) *dayOut = day;
    return w;
}

DesignLoads DesignDayLoads(const Building& b, const WeatherYear& weather, const DesignConditions& c,
                           const RunOptions& options) {
    DesignLoads out;
    out.conditions = c;
    RunOptions opt = options;
    opt.keepHourly = false;
    opt.hvacOff = false;
    opt.skipMonth.fill(false);
    opt.warmupDays = 1;
    opt.onDay = nullptr;  // the design days are no part of the run's progress
    int day = 0;
    const WeatherYear cool = CoolingDesignWeather(weather, c, &day, &out.dailyRange);
    out.coolingDay = day;
    opt.beginDay = opt.endDay = day + 1;
    opt.firstWeekday = FirstWeekdayFor(day);
    const RunResults rc = Simulate(b, cool, opt);
    Building quiet = b;
    for (Zone& z : quiet.zones) z.gains.peopleSensible = z.gains.lights = z.gains.equipment = 0;
    const WeatherYear heat = HeatingDesignWeather(weather, c, &day);
    opt.beginDay = opt.endDay = day + 1;
    opt.firstWeekday = FirstWeekdayFor(day);
    const RunResults rh = Simulate(quiet, heat, opt);
    for (std::size_t z = 0; z < b.zones.size(); ++z) {
        out.cooling.push_back(z < rc.zones.size() ? rc.zones[z].peakCooling : 0.0);
        out.heating.push_back(z < rh.zones.size() ? rh.zones[z].peakHeating : 0.0);
    }
    return out;
}

}  // namespace solvane::engine
