// Design temperatures from the monthly statistics of the climate block:
// summer dry-bulb, summer wet-bulb and winter dry-bulb.
#pragma once

#include <array>
#include <string>

#include "core/project_model.h"

namespace solvane {

// The climate block's eight monthly rows as I-P texts, [1]..[12] a month.
struct WeatherMonths {
    TextTable<12> MonthDBAve, MonthDBAveStd, MonthDBMax, MonthDBMaxStd;
    TextTable<12> MonthDPAve, MonthDPStd, MonthSolar, MonthWind;
    float SiteElevationFt = 0;
};

// Splits `WeatherData` [4]..[11] into the monthly tables, converting a
// project in SI to I-P, and takes the site elevation in feet.
WeatherMonths SplitWeatherRows(const ClimateState& climate, int units);

// Saturation vapour pressure in inches of mercury at `t` degrees F.
double SaturationPressure(double t);

// The three design temperatures as texts, [1] summer dry-bulb, [2] summer
// wet-bulb, [3] winter dry-bulb, in the project's units.
TextTable<3> ComputeDesignTemps(const ClimateState& climate, int units);

// True when the design temperatures must be computed before they are used:
// none held for a project from a file, or none held at all.
bool DesignTempsNeeded(const ProjectModel& model);

}  // namespace solvane
