// Solar position and the irradiance on a tilted surface.
#pragma once

namespace solvane::engine {

inline constexpr double kPiD = 3.14159265358979323846;
inline constexpr double kDeg = kPiD / 180.0;

// Unit vector towards the sun in (east, north, up) coordinates, with the
// quantities the sky model needs.
struct SunPosition {
    double east = 0, north = 0, up = 0;  // direction cosines; up = cos(zenith)
    double zenith = kPiD / 2;            // radians
    double extraterrestrial = 1367;      // normal extraterrestrial irradiance, W/m2
    bool aboveHorizon = false;
};

// Declination, equation of time and the earth-sun distance factor by the
// Fourier series of Spencer (1971); the hour angle from local standard time,
// longitude and time zone (Duffie & Beckman, Solar Engineering of Thermal
// Processes, 2013, ch. 1). `dayOfYear` counts from 1; `standardHour` is the
// clock time in hours (12.5 = half past noon).
SunPosition SolarPosition(int dayOfYear, double standardHour, double latitudeDeg,
                          double longitudeDeg, double timeZoneHours);

// Sun position for an hourly record that covers (hour-1, hour]: the mean
// direction over the part of the hour that the sun is up, found by sampling
// the hour, so that sunrise and sunset hours get a sensible angle.
SunPosition HourSunPosition(int dayOfYear, int hourEnding, double latitudeDeg, double longitudeDeg,
                            double timeZoneHours);

// A surface's outward normal from its azimuth (degrees clockwise from north)
// and tilt (degrees from horizontal, 90 a wall, 0 a roof facing up).
struct SurfaceNormal {
    double east = 0, north = 0, up = 1;
    double cosTilt = 1, sinTilt = 0;
};
SurfaceNormal MakeNormal(double azimuthDeg, double tiltDeg);

// Sky state of one hour that all surfaces share: Perez's brightness
// coefficients F1 and F2.
struct SkyState {
    double directNormal = 0, diffuseHorizontal = 0, globalHorizontal = 0;
    double f1 = 0, f2 = 0;
    SunPosition sun;
};

// Anisotropic sky of Perez, Ineichen, Seals, Michalsky & Stewart (1990),
// "Modeling daylight availability and irradiance components from direct and
// global irradiance", Solar Energy 44(5), with their composite coefficients.
SkyState MakeSkyState(const SunPosition& sun, double directNormal, double diffuseHorizontal,
                      double globalHorizontal);

// Irradiance on a surface, split as the window model needs it.
struct SurfaceIrradiance {
    double beam = 0;           // W/m2 on the surface
    double skyDiffuse = 0;     // W/m2, circumsolar included (Perez)
    double groundDiffuse = 0;  // W/m2, isotropic reflection from the ground
    double cosIncidence = 0;   // of the beam, 0 when the sun is behind the surface
    double Total() const { return beam + skyDiffuse + groundDiffuse; }
};

// Beam, sky diffuse by Perez and ground-reflected diffuse with an isotropic
// ground of reflectance `groundReflectance` (Liu & Jordan 1963 view factor).
SurfaceIrradiance IrradianceOn(const SkyState& sky, const SurfaceNormal& n,
                               double groundReflectance);

}  // namespace solvane::engine
