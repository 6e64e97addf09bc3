// Reader of recorded hourly weather in the EnergyPlus weather format (EPW,
// Crawley et al. 1999), the form the program copies to temp\ecalc$.tmy.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "engine/weather_data.h"

namespace solvane::engine {

// Reads a whole EPW text. The LOCATION line gives the site; the eight header
// lines are skipped; then 8760 data lines (a leap year's 29 February, when
// present, is dropped). Missing long-wave values are estimated from the dew
// point and cloud cover. Throws ReadError naming `fileName` and the line.
WeatherYear ReadEpw(std::string_view content, const std::string& fileName);
WeatherYear ReadEpwFile(const std::filesystem::path& path);

}  // namespace solvane::engine
