// Daylighting: the lights of a zone's daylit floor dimmed to hold the
// target illuminance with the daylight of its windows and skylights.
//
// Method. The average daylight factor of the daylit part of the room, after
// Lynes (1979) as revised by Crisp & Littlefair (1984) (BRE):
//   DF = T Aw theta / (A (1 - R^2))  [%, theta in degrees],
// T the glazing's visible transmittance, Aw its area, theta the angle of sky
// seen from the middle of the window (90 degrees for an unobstructed wall
// window, 180 for a roof light), A the area of all the daylit part's room
// surfaces, windows included, R their mean reflectance (0.5). The daylit
// part is the zone's daylighting depth (DL Depth) along the walls that have
// windows, the whole floor with skylights. Each hour the illuminance in it
// is DF times the outdoor diffuse illuminance, the weather's diffuse
// horizontal irradiance at a luminous efficacy of 120 lm/W (sky light,
// Perez et al. 1990 give about 110 to 130). Continuous dimming with the
// defaults of EnergyPlus's daylighting controls: light output down to 20 %
// at 30 % of the power, linear between; below the target the lights make
// up what daylight does not give.
#pragma once

namespace solvane::engine {

inline constexpr double kSkyLuminousEfficacy = 120.0;  // lm/W

double AverageDaylightFactor(double visibleTransmittance, double windowArea, double skyAngleDeg,
                             double roomSurfaceArea, double reflectance = 0.5);

// Fraction of full lighting power that holds `targetLux` with `daylightLux`.
double DimmedPowerFraction(double daylightLux, double targetLux);

}  // namespace solvane::engine
