// libFuzzer target for the recorded-weather readers, built once for each
// form the control file names (WEATHER_FORM 1 EPW, 2 WYEC2, 3 IWEC, 4
// custom). A file either reads into a year of values within the elements'
// limits or is refused with a ReadError.
#include <cmath>
#include <cstdint>
#include <string_view>

#include "core/item_reader.h"
#include "engine/fixed_column_weather.h"

#ifndef WEATHER_FORM
#error "WEATHER_FORM must be 1 to 4"
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvane::engine;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Site project;
    project.latitude = 39.8;
    project.longitude = -104.7;
    project.timeZone = -7;
    project.elevation = 1650;
    try {
        const WeatherYear w = ReadWeatherOfType(WEATHER_FORM, text, "ecalc$.tmy", project, "x");
        if (w.hours.size() != kHoursPerYear) __builtin_trap();
        for (const WeatherHour& h : w.hours)
            if (!std::isfinite(h.dryBulb) || !std::isfinite(h.dewPoint) ||
                !std::isfinite(h.horizontalInfrared) || h.dryBulb <= -70 || h.dryBulb >= 70 ||
                h.globalHorizontal < 0 || h.windSpeed < 0)
                __builtin_trap();
    } catch (const solvane::ReadError&) {
    }
    return 0;
}
