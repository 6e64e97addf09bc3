// Recorded hourly weather in the fixed-column forms the run screen offers
// besides EPW: WYEC2 (format 2) and IWEC (format 3), and the choice of reader
// by the run control file's weather type.
#pragma once

#include <string>
#include <string_view>

#include "engine/weather_data.h"

namespace solvane::engine {

// One field of a fixed-column record: first column (1-based) and width.
struct Columns {
    int first = 0;
    int width = 0;
    int Last() const { return first + width - 1; }
};

// Where the elements the engine uses stand in an hourly record. Radiation
// is kJ/m2 over the hour ending at the record, pressure in units of 10 Pa,
// temperatures and wind speed in tenths (C, m/s), sky cover in tenths.
struct FixedColumnLayout {
    const char* formatName;
    int recordLength;
    Columns station, year, month, day, hour;
    Columns extraterrestrial, global, direct, diffuse;
    Columns presentWeather, pressure, dryBulb, dewPoint, windDirection, windSpeed;
    Columns totalSky, opaqueSky, snow;
    int headerLines;  // lines before the first hourly record
};

// WYEC2, ASHRAE Weather Year for Energy Calculations 2 (ASHRAE 1997): 8760
// records of 116 columns, no header, local standard time, field encoding and
// units of the NOAA TD 9734 TMY form (US DOE Building Energy Software Tools
// Directory, WYEC2 entry, 2008). Columns as published with the WYEC2 files
// of ACADS-BSG ("WYEC2 Data Format", ACADS-BSG web page, undated) and, four
// columns further right, in the WY3 appendix of Environment and Climate
// Change Canada's CWEEDS 2011 documentation (ECCC), which widens the station
// number and the year of the same record:
//   1-5 station, 6 source, 7-14 YYMMDDHH, 15-18 extraterrestrial,
//   19-22 global horizontal (flags 23-24), 25-28 direct normal (29-30),
//   31-34 diffuse horizontal (35-36), 37-74 illuminance, luminance, ceiling,
//   sky condition and visibility (not used), 75-82 present weather (83 flag),
//   84-88 station pressure (89), 90-93 dry bulb (94), 95-98 dew point (99),
//   100-102 wind direction (103), 104-107 wind speed (108), 109-110 total
//   sky cover (111), 112-113 opaque sky cover (114), 115 snow cover.
// Missing values are all nines: 9999 radiation, temperatures and wind speed,
// 99999 pressure, 999 wind direction, 99 sky cover.
extern const FixedColumnLayout kWyec2Layout;

// IWEC, ASHRAE International Weather for Energy Calculations 1.1 as
// distributed on the ASHRAE CD (ASHRAE 2001): one header line of 76
// characters and 8760 hourly records of 150 characters (sizes as listed for
// IWEC in the US DOE Building Energy Software Tools Directory). The column
// map of the record is not in those sources: until it is checked against the
// IWEC user's manual, the record is read with the WYEC2 element order and
// units behind a six-digit WMO number and a four-digit year:
//   1-6 WMO number, 7 source, 8-17 YYYYMMDDHH, 18-21 extraterrestrial,
//   22-25 global, 28-31 direct, 34-37 diffuse, 78-85 present weather,
//   87-91 pressure, 93-96 dry bulb, 98-101 dew point, 103-105 wind
//   direction, 107-110 wind speed, 112-113 total and 115-116 opaque sky
//   cover, 118 snow; columns 119-150 are not read.
// Header: 1-6 WMO number, 8-37 station, 39-54 country, 55-61 latitude
// (degrees, north positive), 62-68 longitude (degrees, east positive),
// 69-72 time zone (hours from UTC), 73-76 elevation (m) -- a number may run
// into the one before it, so the columns, not blanks, divide them.
extern const FixedColumnLayout kIwecLayout;

// Read a whole file. `projectSite` gives the station for WYEC2, whose files
// carry no latitude or longitude. A damaged or short file throws ReadError
// naming `fileName` and the line.
WeatherYear ReadWyec2(std::string_view content, const std::string& fileName,
                      const Site& projectSite);
WeatherYear ReadIwec(std::string_view content, const std::string& fileName);

// The recorded weather ecalc$.tmy read by the control file's weather type:
// 1 EPW, 2 WYEC2, 3 IWEC, 4 custom. An EPW or custom file is also taken by
// its content under types 1, 3 and 4 (IWEC data is also published as EPW).
// An unknown type throws ReadError naming `controlFileName`, line 2.
WeatherYear ReadWeatherOfType(int weatherType, std::string_view content,
                              const std::string& fileName, const Site& projectSite,
                              const std::string& controlFileName);

}  // namespace solvane::engine
