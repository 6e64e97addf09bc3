#include "core/unit_factors.h"

#include <cmath>

namespace solvane::UnitFactor {

long ElevationFeetToMetres(double feet) {
    return static_cast<long>(std::trunc(feet * LengthIpToSi + 0.5));
}

long ElevationMetresToFeet(double metres) {
    return static_cast<long>(std::trunc(metres * LengthSiToIp));
}

}  // namespace solvane::UnitFactor
