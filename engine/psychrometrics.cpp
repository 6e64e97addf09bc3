#include "engine/psychrometrics.h"

#include <algorithm>
#include <cmath>

#include "engine/root_finding.h"
#include "engine/weather_data.h"

namespace solvane::engine {

namespace {
constexpr double kRatio = 0.621945;  // molecular mass of water over dry air
}

double SaturationHumidityRatio(double t, double p) {
    const double pw = std::min(SaturationPressure(t), 0.99 * p);
    return kRatio * pw / (p - pw);
}

double HumidityRatioOfRh(double t, double rh, double p) {
    const double pw = std::clamp(rh, 0.0, 100.0) / 100.0 * SaturationPressure(t);
    return kRatio * pw / (p - std::min(pw, 0.99 * p));
}

double RhOfHumidityRatio(double t, double w, double p) {
    const double pw = p * w / (kRatio + std::max(w, 0.0));
    return std::clamp(100.0 * pw / SaturationPressure(t), 0.0, 100.0);
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

// The wet bulb lies between the dew point and the dry bulb; the humidity
// ratio of a wet bulb rises with it.
double WetBulbOfHumidityRatio(double t, double w, double p) {
    if (HumidityRatioOfWetBulb(t, t, p) <= w) return t;
    return BracketedRoot([&](double x) { return HumidityRatioOfWetBulb(t, x, p) - w; }, -60.0, t,
                         1e-5);
}

double SaturationTemperatureOfEnthalpy(double h, double p) {
    return BracketedRoot(
        [&](double t) { return MoistAirEnthalpy(t, SaturationHumidityRatio(t, p)) - h; }, -60.0,
        90.0, 1e-5);
}

}  // namespace solvane::engine
