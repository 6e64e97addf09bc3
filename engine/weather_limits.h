// The ranges of the recorded-weather elements the engine reads, and the check
// that names the file, the line and the element of a value outside them.
#pragma once

#include <string>
#include <string_view>

namespace solvane::engine {

// One element of an hourly record. A value at or above `missing` is the
// form's mark of a missing value; otherwise it must lie within the limits
// (exclusive where the form's documentation says "greater than").
struct WeatherElement {
    const char* name;
    const char* unit;
    double minimum, maximum;
    bool exclusive;  // minimum and maximum themselves are outside the range
    double missing;  // values at or above it are missing; 0 when the form has no mark
};

// Limits of the EnergyPlus Weather File (EPW) Data Dictionary (US DOE,
// EnergyPlus Auxiliary Programs, "Weather Converter Program", ch. 2.9).
namespace epw {
inline constexpr WeatherElement kDryBulb{"dry bulb", "C", -70, 70, true, 99.9};
inline constexpr WeatherElement kDewPoint{"dew point", "C", -70, 70, true, 99.9};
inline constexpr WeatherElement kRelativeHumidity{"relative humidity", "%", 0, 110, false, 999};
inline constexpr WeatherElement kPressure{"station pressure", "Pa", 31000, 120000, true, 999999};
inline constexpr WeatherElement kInfrared{"horizontal infrared", "Wh/m2", 0, 9999, false, 9999};
inline constexpr WeatherElement kGlobal{"global horizontal", "Wh/m2", 0, 9999, false, 9999};
inline constexpr WeatherElement kDirect{"direct normal", "Wh/m2", 0, 9999, false, 9999};
inline constexpr WeatherElement kDiffuse{"diffuse horizontal", "Wh/m2", 0, 9999, false, 9999};
inline constexpr WeatherElement kWindDirection{"wind direction", "degrees", 0, 360, false, 999};
inline constexpr WeatherElement kWindSpeed{"wind speed", "m/s", 0, 40, false, 999};
inline constexpr WeatherElement kOpaqueSky{"opaque sky cover", "tenths", 0, 10, false, 99};
}  // namespace epw

// The same physical limits in the units of the custom form (I-P: deg F,
// Btu/h sq.ft, miles per hour), which has no missing-value mark; radiation
// is bounded by the solar constant (1367 W/m2 = 433 Btu/h sq.ft).
namespace custom {
inline constexpr WeatherElement kDryBulb{"dry bulb", "F", -94, 158, true, 0};
inline constexpr WeatherElement kDewPoint{"dew point", "F", -94, 158, true, 0};
inline constexpr WeatherElement kGlobal{"global horizontal", "Btu/h sq.ft", 0, 433, false, 0};
inline constexpr WeatherElement kDirect{"direct normal", "Btu/h sq.ft", 0, 433, false, 0};
inline constexpr WeatherElement kDiffuse{"diffuse horizontal", "Btu/h sq.ft", 0, 433, false, 0};
inline constexpr WeatherElement kWindSpeed{"wind speed", "mph", 0, 89.5, false, 0};
inline constexpr WeatherElement kWindDirection{"wind direction", "degrees", 0, 360, false, 0};
inline constexpr WeatherElement kOpaqueSky{"opaque sky cover", "tenths", 0, 10, false, 0};
}  // namespace custom

// True when `value` is the form's missing mark for the element.
bool IsMissing(const WeatherElement& e, double value);

// The number of a field's text. Text that is not one number, or a number
// outside the element's limits that is not its missing mark, throws
// ReadError naming the file, the line, the element and the limits.
double WeatherValue(std::string_view text, const WeatherElement& e, const std::string& fileName,
                    int line);

// The check alone, for a value already read.
double CheckWeatherValue(double value, const WeatherElement& e, const std::string& fileName,
                         int line);

}  // namespace solvane::engine
