// Hourly weather as the engine uses it, whatever its source: a recorded file
// or the synthetic generator. All values are SI.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace solvane::engine {

inline constexpr int kHoursPerYear = 8760;

// The station the weather belongs to.
struct Site {
    std::string name;      // city, state, country as the source gives them
    double latitude = 0;   // degrees, north positive
    double longitude = 0;  // degrees, east positive
    double timeZone = 0;   // hours from UTC, west negative
    double elevation = 0;  // metres
};

// One hour; radiation values are the energy of the hour ending at the record
// (W/m2 averaged over it), temperatures are the values at the end of the hour.
struct WeatherHour {
    float dryBulb = 0;             // C
    float dewPoint = 0;            // C
    float relativeHumidity = 0;    // percent
    float pressure = 101325;       // Pa
    float globalHorizontal = 0;    // W/m2
    float directNormal = 0;        // W/m2
    float diffuseHorizontal = 0;   // W/m2
    float horizontalInfrared = 0;  // W/m2, downwelling long-wave from the sky
    float windSpeed = 0;           // m/s at 10 m
    float windDirection = 0;       // degrees from north
    float opaqueSkyCover = 0;      // tenths
};

struct WeatherYear {
    Site site;
    std::vector<WeatherHour> hours;  // kHoursPerYear records, 1 January 1 a.m. first
    // Monthly undisturbed ground temperatures at about 0.5 m (C); empty when
    // the source gives none.
    std::vector<double> groundTemperatures;
};

// Month (0..11) of a day of a 365-day year (0..364).
int MonthOfDay(int dayOfYear);
// First day (0-based) of each month, and one past the last of December.
extern const std::array<int, 13> kMonthStartDay;

// Sky temperature from the dew point and cloud cover when a source has no
// long-wave record: sky emissivity after Clark & Allen (1978) with the cloud
// correction of Walton (TARP, 1983). Returns W/m2 of horizontal infrared.
double EstimateHorizontalInfrared(double dryBulbC, double dewPointC, double opaqueSkyTenths);

// Saturation pressure over water (Pa), Hyland & Wexler (1983) as in ASHRAE Fundamentals.
double SaturationPressure(double temperatureC);
// Relative humidity (percent) from dry bulb and dew point.
double RelativeHumidity(double dryBulbC, double dewPointC);
// Standard atmospheric pressure (Pa) at an elevation (m), ASHRAE Fundamentals (2017) ch. 1.
double StandardPressure(double elevationM);
// Moist air density (kg/m3) of dry air at a pressure and temperature, ideal gas.
double AirDensity(double pressurePa, double temperatureC);

}  // namespace solvane::engine
