#include "engine/sun.h"

#include <algorithm>
#include <cmath>

namespace solvane::engine {

namespace {

// What a day fixes of the sun's position (Spencer 1971): declination,
// equation of time and the earth-sun distance factor, with the site's
// latitude and clock offset.
struct SunOfDay {
    double sinDecl, cosDecl, sinPhi, cosPhi, clockToSolar, distance;
};

SunOfDay DaySun(int dayOfYear, double latitudeDeg, double longitudeDeg, double timeZoneHours) {
    const double g = 2.0 * kPiD * (dayOfYear - 1) / 365.0;
    const double decl = 0.006918 - 0.399912 * std::cos(g) + 0.070257 * std::sin(g) -
                        0.006758 * std::cos(2 * g) + 0.000907 * std::sin(2 * g) -
                        0.002697 * std::cos(3 * g) + 0.00148 * std::sin(3 * g);
    const double eotMinutes = 229.18 * (0.000075 + 0.001868 * std::cos(g) - 0.032077 * std::sin(g) -
                                        0.014615 * std::cos(2 * g) - 0.040849 * std::sin(2 * g));
    const double distance = 1.000110 + 0.034221 * std::cos(g) + 0.001280 * std::sin(g) +
                            0.000719 * std::cos(2 * g) + 0.000077 * std::sin(2 * g);
    const double phi = latitudeDeg * kDeg;
    return {std::sin(decl),
            std::cos(decl),
            std::sin(phi),
            std::cos(phi),
            (4.0 * (longitudeDeg - 15.0 * timeZoneHours) + eotMinutes) / 60.0,
            distance};
}

// The direction of the sun at a clock time of the day; the zenith angle is
// left to the caller.
SunPosition SunAt(const SunOfDay& d, double standardHour) {
    const double omega = 15.0 * kDeg * (standardHour + d.clockToSolar - 12.0);
    const double cosOmega = std::cos(omega);
    SunPosition s;
    s.up = d.sinPhi * d.sinDecl + d.cosPhi * d.cosDecl * cosOmega;
    s.east = -d.cosDecl * std::sin(omega);
    s.north = d.sinDecl * d.cosPhi - d.cosDecl * d.sinPhi * cosOmega;
    s.extraterrestrial = 1367.0 * d.distance;
    s.aboveHorizon = s.up > 0;
    return s;
}

}  // namespace

SunPosition SolarPosition(int dayOfYear, double standardHour, double latitudeDeg,
                          double longitudeDeg, double timeZoneHours) {
    SunPosition s =
        SunAt(DaySun(dayOfYear, latitudeDeg, longitudeDeg, timeZoneHours), standardHour);
    s.zenith = std::acos(std::clamp(s.up, -1.0, 1.0));
    return s;
}

SunPosition HourSunPosition(int dayOfYear, int hourEnding, double latitudeDeg, double longitudeDeg,
                            double timeZoneHours) {
    constexpr int kSamples = 8;
    const SunOfDay day = DaySun(dayOfYear, latitudeDeg, longitudeDeg, timeZoneHours);
    double e = 0, n = 0, u = 0;
    int up = 0;
    SunPosition last;
    for (int k = 0; k < kSamples; ++k) {
        const double t = hourEnding - 1 + (k + 0.5) / kSamples;
        last = SunAt(day, t);
        if (last.up > 0) {
            e += last.east, n += last.north, u += last.up;
            ++up;
        }
    }
    SunPosition s = last;
    if (up == 0) {
        s.zenith = std::acos(std::clamp(s.up, -1.0, 1.0));
        s.aboveHorizon = false;
        return s;
    }
    const double len = std::sqrt(e * e + n * n + u * u);
    s.east = e / len, s.north = n / len, s.up = u / len;
    s.zenith = std::acos(std::clamp(s.up, -1.0, 1.0));
    s.aboveHorizon = true;
    return s;
}

SurfaceNormal MakeNormal(double azimuthDeg, double tiltDeg) {
    SurfaceNormal n;
    n.cosTilt = std::cos(tiltDeg * kDeg);
    n.sinTilt = std::sin(tiltDeg * kDeg);
    if (std::abs(n.cosTilt) < 1e-12) n.cosTilt = 0;
    if (std::abs(n.sinTilt) < 1e-12) n.sinTilt = 0;
    n.east = n.sinTilt * std::sin(azimuthDeg * kDeg);
    n.north = n.sinTilt * std::cos(azimuthDeg * kDeg);
    n.up = n.cosTilt;
    return n;
}

namespace {
// Perez et al. (1990), Table 6: F11 F12 F13 F21 F22 F23 for the eight
// sky clearness bins.
constexpr double kPerez[8][6] = {
    {-0.008, 0.588, -0.062, -0.060, 0.072, -0.022}, {0.130, 0.683, -0.151, -0.019, 0.066, -0.029},
    {0.330, 0.487, -0.221, 0.055, -0.064, -0.026},  {0.568, 0.187, -0.295, 0.109, -0.152, -0.014},
    {0.873, -0.392, -0.362, 0.226, -0.462, 0.001},  {1.132, -1.237, -0.412, 0.288, -0.823, 0.056},
    {1.060, -1.600, -0.359, 0.264, -1.127, 0.131},  {0.678, -0.327, -0.250, 0.156, -1.377, 0.251}};
constexpr double kClearnessBounds[7] = {1.065, 1.230, 1.500, 1.950, 2.800, 4.500, 6.200};
}  // namespace

SkyState MakeSkyState(const SunPosition& sun, double directNormal, double diffuseHorizontal,
                      double globalHorizontal) {
    SkyState sky;
    sky.sun = sun;
    sky.directNormal = sun.aboveHorizon ? std::max(0.0, directNormal) : 0.0;
    sky.diffuseHorizontal = std::max(0.0, diffuseHorizontal);
    sky.globalHorizontal = std::max(0.0, globalHorizontal);
    if (!sun.aboveHorizon || sky.diffuseHorizontal <= 0) return sky;
    const double z = sun.zenith;
    const double kappa = 1.041;
    const double z3 = z * z * z;
    const double eps =
        ((sky.diffuseHorizontal + sky.directNormal) / sky.diffuseHorizontal + kappa * z3) /
        (1.0 + kappa * z3);
    // Relative optical air mass, Kasten & Young (1989).
    const double zDeg = std::min(z / kDeg, 90.0);
    const double airMass = 1.0 / (std::cos(z) + 0.50572 * std::pow(96.07995 - zDeg, -1.6364));
    const double delta = sky.diffuseHorizontal * airMass / sun.extraterrestrial;
    int bin = 0;
    while (bin < 7 && eps >= kClearnessBounds[bin]) ++bin;
    const double* f = kPerez[bin];
    sky.f1 = std::max(0.0, f[0] + f[1] * delta + f[2] * z);
    sky.f2 = f[3] + f[4] * delta + f[5] * z;
    return sky;
}

SurfaceIrradiance IrradianceOn(const SkyState& sky, const SurfaceNormal& n,
                               double groundReflectance) {
    SurfaceIrradiance r;
    const SunPosition& s = sky.sun;
    if (s.aboveHorizon) {
        r.cosIncidence = std::max(0.0, s.east * n.east + s.north * n.north + s.up * n.up);
        r.beam = sky.directNormal * r.cosIncidence;
    }
    const double skyView = 0.5 * (1.0 + n.cosTilt);
    if (sky.diffuseHorizontal > 0) {
        const double a = r.cosIncidence;
        const double b = std::max(std::cos(85.0 * kDeg), s.up);
        r.skyDiffuse =
            sky.diffuseHorizontal *
            std::max(0.0, (1.0 - sky.f1) * skyView + sky.f1 * a / b + sky.f2 * n.sinTilt);
    }
    r.groundDiffuse = groundReflectance * sky.globalHorizontal * 0.5 * (1.0 - n.cosTilt);
    return r;
}

}  // namespace solvane::engine
