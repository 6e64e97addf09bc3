// Moist-air properties for the zones' humidity balance and the cooling
// coils, after ASHRAE Handbook of Fundamentals (2017) ch. 1 (SI): humidity
// ratio from the vapour pressure, enthalpy of moist air, the thermodynamic
// wet bulb, and the saturation state of an enthalpy. Saturation pressure is
// Hyland & Wexler (1983) (weather_data.h).
#pragma once

namespace solvane::engine {

// Latent heat of vaporisation at 0 C (J/kg), the figure of the enthalpy
// equation below.
inline constexpr double kLatentHeat = 2.501e6;

// Humidity ratio (kg/kg dry air) of saturated air at `t` C and `p` Pa.
double SaturationHumidityRatio(double t, double p);
// Humidity ratio from dry bulb (C) and relative humidity (percent).
double HumidityRatioOfRh(double t, double rhPercent, double p);
// Relative humidity (percent, 0..100) of air at `t` C and humidity ratio `w`.
double RhOfHumidityRatio(double t, double w, double p);
// Enthalpy (J/kg dry air): 1006 t + w (2.501e6 + 1860 t).
double MoistAirEnthalpy(double t, double w);
// Dry bulb (C) of air of enthalpy `h` (J/kg) and humidity ratio `w`.
double DryBulbOfEnthalpy(double h, double w);
// Thermodynamic wet bulb (C) of air at `t` C and `w` (ch. 1 eq. 33/35).
double WetBulbOfHumidityRatio(double t, double w, double p);
// Humidity ratio of air at dry bulb `t` and wet bulb `twb`.
double HumidityRatioOfWetBulb(double t, double twb, double p);
// Temperature (C) of saturated air of enthalpy `h` (J/kg), sought below
// `below` C (the dry bulb of any air of that enthalpy bounds it).
double SaturationTemperatureOfEnthalpy(double h, double p, double below = 90.0);

}  // namespace solvane::engine
