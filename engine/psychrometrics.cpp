#include "engine/psychrometrics.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/root_finding.h"
#include "engine/weather_data.h"

namespace solvane::engine {

namespace {
constexpr double kRatio = 0.621945;  // molecular mass of water over dry air

// Saturation pressure from a table of Hyland & Wexler's values every 0.01 K
// from -60 to 90 C, interpolated linearly (relative error below 1e-7):
// the coil's root searches call it thousands of times an hour of a year.
double Pws(double t) {
    constexpr double lo = -60.0, step = 0.01;
    constexpr int n = 15001;
    static const std::vector<double> table = [] {
        std::vector<double> v(n);
        for (int i = 0; i < n; ++i) v[i] = SaturationPressure(lo + i * step);
        return v;
    }();
    const double x = (t - lo) / step;
    if (!(x >= 0) || x >= n - 1) return SaturationPressure(t);
    const int i = static_cast<int>(x);
    const double f = x - i;
    return table[i] + f * (table[i + 1] - table[i]);
}
}  // namespace

double SaturationHumidityRatio(double t, double p) {
    const double pw = std::min(Pws(t), 0.99 * p);
    return kRatio * pw / (p - pw);
}

double HumidityRatioOfRh(double t, double rh, double p) {
    const double pw = std::clamp(rh, 0.0, 100.0) / 100.0 * Pws(t);
    return kRatio * pw / (p - std::min(pw, 0.99 * p));
}

double RhOfHumidityRatio(double t, double w, double p) {
    const double pw = p * w / (kRatio + std::max(w, 0.0));
    return std::clamp(100.0 * pw / Pws(t), 0.0, 100.0);
}

double MoistAirEnthalpy(double t, double w) {
    return 1006.0 * t + w * (kLatentHeat + 1860.0 * t);
}

double DryBulbOfEnthalpy(double h, double w) {
    return (h - kLatentHeat * w) / (1006.0 + 1860.0 * w);
}

// ch. 1 eq. 33 (above freezing) and 35 (below), in J/kg.
double HumidityRatioOfWetBulb(double t, double twb, double p) {
    const double ws = SaturationHumidityRatio(twb, p);
    if (twb >= 0)
        return ((2501.0 - 2.326 * twb) * ws - 1.006 * (t - twb)) /
               (2501.0 + 1.86 * t - 4.186 * twb);
    return ((2830.0 - 0.24 * twb) * ws - 1.006 * (t - twb)) / (2830.0 + 1.86 * t - 2.1 * twb);
}

// Newton steps on f(x) = 0 from x0 with a difference quotient, kept
// inside [lo, hi]; the bracketed search when they do not settle.
template <class F>
double NewtonInBracket(F&& f, double x0, double lo, double hi, double tol) {
    double x = std::clamp(x0, lo, hi);
    for (int i = 0; i < 6; ++i) {
        const double fx = f(x);
        const double d = (f(x + 1e-3) - fx) / 1e-3;
        if (!(d != 0)) break;
        const double next = std::clamp(x - fx / d, lo, hi);
        if (std::fabs(next - x) < tol) return next;
        x = next;
    }
    return BracketedRoot(f, lo, hi, tol);
}

// The wet bulb lies between the dew point and the dry bulb; the humidity
// ratio of a wet bulb rises with it. Start: a third of the way from the dry
// bulb down to the dew point (Magnus's dew point).
double WetBulbOfHumidityRatio(double t, double w, double p) {
    if (HumidityRatioOfWetBulb(t, t, p) <= w) return t;
    const double pw = p * std::max(w, 1e-6) / (kRatio + std::max(w, 1e-6));
    const double g = std::log(pw / 610.94);
    const double dew = 243.04 * g / (17.625 - g);
    return NewtonInBracket([&](double x) { return HumidityRatioOfWetBulb(t, x, p) - w; },
                           t - (t - dew) / 3.0, std::max(t - 50.0, -60.0), t, 1e-4);
}

// Start: the temperature of the saturated enthalpy at standard pressure by
// a table every 0.5 K.
double SaturationTemperatureOfEnthalpy(double h, double p, double below) {
    static const std::vector<double> table = [] {
        std::vector<double> v;
        for (double t = -60.0; t <= 90.0; t += 0.5)
            v.push_back(MoistAirEnthalpy(t, SaturationHumidityRatio(t, 101325.0)));
        return v;
    }();
    const auto it = std::lower_bound(table.begin(), table.end(), h);
    const double t0 = -60.0 + 0.5 * static_cast<double>(it - table.begin());
    return NewtonInBracket(
        [&](double t) { return MoistAirEnthalpy(t, SaturationHumidityRatio(t, p)) - h; }, t0, -60.0,
        below, 1e-4);
}

}  // namespace solvane::engine
