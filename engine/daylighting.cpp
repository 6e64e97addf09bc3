#include "engine/daylighting.h"

#include <algorithm>

namespace solvane::engine {

double AverageDaylightFactor(double t, double aw, double theta, double a, double r) {
    if (a <= 0 || aw <= 0) return 0;
    return t * aw * theta / (a * (1.0 - r * r));  // theta in degrees gives percent
}

double DimmedPowerFraction(double daylightLux, double targetLux) {
    if (targetLux <= 0) return 1.0;
    const double light = std::clamp(1.0 - daylightLux / targetLux, 0.0, 1.0);  // output needed
    constexpr double minLight = 0.2, minPower = 0.3;
    if (light <= minLight) return minPower;
    return minPower + (1.0 - minPower) * (light - minLight) / (1.0 - minLight);
}

}  // namespace solvane::engine
