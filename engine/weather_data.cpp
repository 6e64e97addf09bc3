#include "engine/weather_data.h"

#include <algorithm>
#include <cmath>

namespace solvane::engine {

const std::array<int, 13> kMonthStartDay = {0,   31,  59,  90,  120, 151, 181,
                                            212, 243, 273, 304, 334, 365};

int MonthOfDay(int dayOfYear) {
    int m = 0;
    while (m < 11 && dayOfYear >= kMonthStartDay[m + 1]) ++m;
    return m;
}

double EstimateHorizontalInfrared(double dryBulbC, double dewPointC, double opaqueSkyTenths) {
    constexpr double sigma = 5.6697e-8;
    const double tk = dryBulbC + 273.15;
    const double n = std::clamp(opaqueSkyTenths, 0.0, 10.0);  // tenths
    const double clear = 0.787 + 0.764 * std::log((dewPointC + 273.15) / 273.0);
    const double emissivity =
        std::clamp(clear * (1.0 + 0.0224 * n - 0.0035 * n * n + 0.00028 * n * n * n), 0.0, 1.0);
    return emissivity * sigma * tk * tk * tk * tk;
}

double SaturationPressure(double t) {
    const double tk = t + 273.15;
    if (t < 0) {
        return std::exp(-5.6745359e3 / tk + 6.3925247 - 9.677843e-3 * tk + 6.2215701e-7 * tk * tk +
                        2.0747825e-9 * tk * tk * tk - 9.484024e-13 * tk * tk * tk * tk +
                        4.1635019 * std::log(tk));
    }
    return std::exp(-5.8002206e3 / tk + 1.3914993 - 4.8640239e-2 * tk + 4.1764768e-5 * tk * tk -
                    1.4452093e-8 * tk * tk * tk + 6.5459673 * std::log(tk));
}

double RelativeHumidity(double dryBulbC, double dewPointC) {
    return std::clamp(100.0 * SaturationPressure(dewPointC) / SaturationPressure(dryBulbC), 0.0,
                      100.0);
}

double StandardPressure(double elevationM) {
    return 101325.0 * std::pow(1.0 - 2.25577e-5 * elevationM, 5.2559);
}

double AirDensity(double pressurePa, double temperatureC) {
    return pressurePa / (287.042 * (temperatureC + 273.15));
}

}  // namespace solvane::engine
