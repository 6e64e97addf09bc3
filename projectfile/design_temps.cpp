#include "projectfile/design_temps.h"

#include <algorithm>
#include <cmath>

#include "core/numeric_helpers.h"
#include "core/unit_factors.h"
#include "core/text_cuts.h"

namespace solvane {

namespace {

// The sigma factor of the design conditions: the 2.11 standard deviations
// of a normal distribution leave about 1.7 % of the hours of a month beyond.
constexpr double kSigma = 2.11;

std::string OneDecimalText(double v) {
    return NumText(RoundOneDecimal(v));
}

// Moist air in I-P units (ASHRAE Handbook - Fundamentals, Psychrometrics):
// humidity ratio W = 0.622 pw / (P - pw) and enthalpy
// h = 0.24 t + W (1061 + 0.444 t) in Btu/lb of dry air.
double HumidityRatio(double pw, double pressure) {
    const double dry = pressure - pw;
    if (dry <= 0) return HUGE_VAL;
    return 0.622 * pw / dry;
}
double Enthalpy(double t, double w) {
    return 0.24 * t + w * (1061.0 + 0.444 * t);
}

}  // namespace

WeatherMonths SplitWeatherRows(const ClimateState& climate, int units) {
    WeatherMonths months;
    // Six characters hold at most six digits; an exponent form is held to that.
    const double elevation =
        std::clamp(NumVal(cuts::Right(climate.WeatherData[2], 6)), -999999.0, 999999.0);
    months.SiteElevationFt = static_cast<float>(elevation);
    if (units == 2)
        months.SiteElevationFt = static_cast<float>(UnitFactor::ElevationMetresToFeet(elevation));

    TextTable<12>* rows[8] = {&months.MonthDBAve,    &months.MonthDBAveStd, &months.MonthDBMax,
                              &months.MonthDBMaxStd, &months.MonthDPAve,    &months.MonthDPStd,
                              &months.MonthSolar,    &months.MonthWind};
    for (int row = 4; row <= 11; ++row) {
        const auto tokens = cuts::Tokens(climate.WeatherData[row], 12);
        TextTable<12>& table = *rows[row - 4];
        for (std::size_t m = 0; m < tokens.size(); ++m) {
            if (units != 2) {
                table[m + 1] = tokens[m];
                continue;
            }
            const double v = NumVal(tokens[m]);
            double ip = v;
            switch (row) {
                case 4:
                case 6:
                case 8:
                    ip = UnitFactor::CelsiusToFahrenheit(v);
                    break;
                case 5:
                case 7:
                case 9:
                    ip = UnitFactor::DeltaCToDeltaF(v);
                    break;
                case 10:
                    ip = v * UnitFactor::SolarSiToIp;
                    break;
                case 11:
                    ip = v * UnitFactor::WindSiToIp;
                    break;
            }
            table[m + 1] = OneDecimalText(ip);
        }
    }
    return months;
}

// Below 85 F the pressure comes from a cubic fit of the saturation humidity
// ratio at sea level, turned into a pressure with p = 29.92 W / (W + 0.622).
// Above it, the Goff-Gratch equation over water (Goff and Gratch, 1946, as
// given in the Smithsonian Meteorological Tables, List 1951), in the form
// this program has always used: natural logarithms where the published form
// has common ones, and the "minus 1" of its two power terms inside the
// exponent. The program's design temperatures depend on this form, so it is
// kept as it is.
double SaturationPressure(double t) {
    double p;
    if (t <= 85.0) {
        const double x = ((3.67113e-8 * t - 3.56797e-7) * t + 5.97982e-5) * t + 9.47894e-4;
        p = 29.92 * x / (x + 0.622);
    } else {
        const double k = (t + 459.688) / 1.8;
        double s;
        if (k >= 273.16) {
            const double z = 373.16 / k;
            s = -7.90298 * (z - 1) + 5.02808 * std::log(z) -
                1.3816e-7 * std::pow(10.0, 11.344 * (1 - 1 / z) - 1) +
                8.1328e-3 * std::pow(10.0, -3.49149 * (z - 1) - 1);
        } else {
            const double z = 273.16 / k;
            s = -9.09718 * (z - 1) - 3.56654 * std::log(z) + 0.876793 * (1 - 1 / z) +
                std::log(0.0060273);
        }
        p = 29.921 * std::pow(10.0, s);
    }
    return p < 0 ? 0.0001 : p;
}

bool DesignTempsNeeded(const ProjectModel& model) {
    return (cuts::IsBlankText(model.climate.DesTemps[1]) && model.flags.ProjectFromFile == 1) ||
           model.climate.DesTempsPresent == 0;
}

TextTable<3> ComputeDesignTemps(const ClimateState& climate, int units) {
    const WeatherMonths w = SplitWeatherRows(climate, units);
    // Station pressure in inches of mercury, a straight-line fall with height.
    const double pressure = 29.92 - w.SiteElevationFt * 5.031 / 5000.0;

    double summerDB = -999, winterDB = 999, peakDP = -999, dpDryBulb = 0;
    for (int m = 1; m <= 12; ++m) {
        const double dbAve = NumVal(w.MonthDBAve[m]), aveStd = NumVal(w.MonthDBAveStd[m]);
        const double dbMax = NumVal(w.MonthDBMax[m]), maxStd = NumVal(w.MonthDBMaxStd[m]);
        const double dpAve = NumVal(w.MonthDPAve[m]), dpStd = NumVal(w.MonthDPStd[m]);
        double candidate = dbMax + kSigma * maxStd;
        if (candidate > summerDB) summerDB = RoundOneDecimal(candidate);
        // The daily minimum lies as far below the mean as the maximum above it.
        candidate = 2 * (dbAve - kSigma * aveStd) - (dbMax - kSigma * maxStd);
        if (candidate < winterDB) winterDB = RoundOneDecimal(candidate);
        candidate = dpAve + kSigma * dpStd;
        if (candidate > peakDP) {
            peakDP = candidate;
            dpDryBulb = dbAve;
        }
    }

    // Wet-bulb of the month of the highest dew point: the temperature at which
    // saturated air has the enthalpy of the air at its mean dry-bulb and that
    // dew point (adiabatic saturation, ASHRAE Handbook - Fundamentals).
    const double pwDew = SaturationPressure(peakDP);
    const double h = Enthalpy(dpDryBulb, HumidityRatio(pwDew, pressure));
    // The dew point must be one that some month gave and whose vapour
    // pressure stays below the station pressure.
    const bool dewPointUsable = peakDP > -999 && pwDew < pressure;
    const bool haveEstimate = h > 0.001 && dewPointUsable;
    double t = 0;
    if (haveEstimate) {
        // Sea-level fit of wet-bulb against the logarithm of enthalpy.
        const double l = std::log(h);
        if (h <= 11.758)
            t = 0.6041 + 3.4841 * l + 1.3601 * l * l + 0.97303 * l * l * l;
        else
            t = 30.9185 - 39.682 * l + 20.5841 * l * l - 1.758 * l * l * l;

        if (!(std::fabs(pressure - 29.92) < 0.22 && h > 0.01)) {
            // Away from sea level the estimate is corrected by a search. The
            // first step is half the distance between the estimate and the
            // dew point, at least 1 F, in the direction that the enthalpy
            // error points; each overshoot turns the step back at 0.4 of it.
            double step = std::fmax(std::fabs(t - peakDP) / 2.0, 1.0);
            int lastSign = 0;
            for (int pass = 0; pass < 500; ++pass) {
                const double hs = Enthalpy(t, HumidityRatio(SaturationPressure(t), pressure));
                const double diff = h - hs;
                if (std::fabs(diff) < 0.03 || std::fabs(step) < 0.1) break;
                const int sign = diff > 0 ? 1 : -1;
                if (lastSign == 0)
                    step = sign * step;
                else if (sign != lastSign)
                    step *= -0.4;
                lastSign = sign;
                t += step;
            }
        }
    }
    double wetBulb = (!haveEstimate || t < peakDP) ? (peakDP + dpDryBulb) / 2.0 : t;
    wetBulb = RoundOneDecimal(wetBulb);
    if (wetBulb > dpDryBulb) wetBulb = dpDryBulb;

    TextTable<3> out;
    if (units == 2) {
        out[1] = NumText(RoundOff(UnitFactor::FahrenheitToCelsius(summerDB), 1));
        out[2] = NumText(RoundOff(UnitFactor::FahrenheitToCelsius(wetBulb), 1));
        out[3] = NumText(RoundOff(UnitFactor::FahrenheitToCelsius(winterDB), 1));
    } else {
        out[1] = NumText(summerDB);
        out[2] = NumText(wetBulb);
        out[3] = NumText(winterDB);
    }
    return out;
}

}  // namespace solvane
