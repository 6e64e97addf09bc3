// Writes hours of a WeatherYear in the fixed-column recorded forms (WYEC2,
// IWEC, TMY2): the test input of the readers and the excerpts of the help
// samples Helpinfo\wyec2.txt, iwec.txt and tmy2.txt.
#pragma once

#include <string>

#include "engine/fixed_column_weather.h"
#include "engine/weather_data.h"

namespace solvane::engine::testing {

struct StationText {
    std::string number;  // WBAN or WMO number
    std::string city;    // station name
    std::string region;  // state or country
    int year = 95;       // year written in the records (two or four digits as the form has)
};

// Hourly records `first` .. `first + count - 1` (0-based hours of the year),
// CR LF after each. Values are rounded to the form's units; what the
// WeatherYear does not carry (extraterrestrial radiation, illuminance) is
// written as missing.
std::string FixedColumnRecords(const WeatherYear& w, const FixedColumnLayout& f,
                               const StationText& s, int first, int count);
// The IWEC header line (76 characters).
std::string IwecHeader(const Site& site, const StationText& s);
// Whole files: a year of records (IWEC with its header).
std::string Wyec2File(const WeatherYear& w, const StationText& s);
std::string IwecFile(const WeatherYear& w, const StationText& s);

// TMY2 (Marion & Urban, NREL 1995): header and records of 142 columns.
std::string Tmy2Header(const Site& site, const StationText& s);
std::string Tmy2Records(const WeatherYear& w, const StationText& s, int first, int count);

// The help sample files as delivered in data/Helpinfo: a few lines on the
// columns, then an excerpt of the Denver year (1 January and a summer noon).
std::string Wyec2HelpSample(const WeatherYear& denver);
std::string IwecHelpSample(const WeatherYear& denver);
std::string Tmy2HelpSample(const WeatherYear& denver);

}  // namespace solvane::engine::testing
