// The program's own recorded-weather form (Helpinfo\custom.txt): a header of
// two lines and 8760 comma-separated hourly lines in I-P units.
#pragma once

#include <string>
#include <string_view>

#include "engine/weather_data.h"

namespace solvane::engine {

// Throws ReadError naming `fileName` and the line of a bad value.
WeatherYear ReadCustomWeather(std::string_view content, const std::string& fileName);

// A recorded weather file by its content: EPW (a LOCATION line, also what
// IWEC data comes as) or the custom form. Throws ReadError for any other.
WeatherYear ReadRecordedWeather(std::string_view content, const std::string& fileName);

}  // namespace solvane::engine
