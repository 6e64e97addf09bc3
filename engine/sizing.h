// Design loads of the zones from the project's design temperatures.
//
// Method. The heat balance of simulation.h run on two design days until
// it repeats itself (steady periodic), after the design-day practice of
// ASHRAE Handbook of Fundamentals (2017) ch. 18:
// - cooling: the sunniest day of the warmest month of the weather (July,
//   or January south of the equator) with its sun and wind, the dry bulb
//   peaking at the summer design dry bulb at 3 p.m. and falling by the
//   month's mean daily range to 3 a.m. on a cosine, the humidity ratio of
//   the summer design dry and wet bulbs all day, a clear sky's long-wave; a
//   weekday's gains and schedules;
// - heating: the winter design dry bulb all day, no sun, an overcast sky,
//   and no internal gains.
// The zones' peak hourly loads of these days size the plant (hvac_systems.h).
#pragma once

#include <string>
#include <vector>

#include "engine/building.h"
#include "engine/simulation.h"
#include "engine/weather_data.h"

namespace solvane::engine {

struct DesignConditions {
    double summerDryBulb = 35.0;   // C
    double summerWetBulb = 24.0;   // C, coincident
    double winterDryBulb = -10.0;  // C
};

struct DesignLoads {
    std::vector<double> cooling, heating;  // W, each zone's peak hour of its day
    DesignConditions conditions;
    double dailyRange = 0;  // K, of the cooling day
    int coolingDay = -1;    // 0-based day of the year whose sun the cooling day takes
};

// The design temperatures of the project file's "DesTemps" line (I-P
// texts: summer dry bulb, summer wet bulb, winter dry bulb, deg F); false
// when any is missing.
bool DesignConditionsOf(const std::string& summerDb, const std::string& summerWb,
                        const std::string& winterDb, DesignConditions& out);

// The two design days' weather, built on `weather`'s year.
WeatherYear CoolingDesignWeather(const WeatherYear& weather, const DesignConditions& c,
                                 int* day = nullptr, double* dailyRange = nullptr);
WeatherYear HeatingDesignWeather(const WeatherYear& weather, const DesignConditions& c,
                                 int* day = nullptr);

DesignLoads DesignDayLoads(const Building& building, const WeatherYear& weather,
                           const DesignConditions& conditions, const RunOptions& options);

}  // namespace solvane::engine
