#include "engine/hvac_systems.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace solvane::engine {

namespace {

constexpr double kBtuhPerW = 3.412141;
constexpr double kAirRhoCp = 1.2 * 1006.0;      // J/m3K, standard air
constexpr double kWaterRhoCp = 998.0 * 4186.0;  // J/m3K
constexpr double kGpmPerM3s = 15850.3;
constexpr double kCoilWetBulb = 19.44;         // C: 67 F, the AHRI 210/240 rating condition
constexpr double kHotWaterSupply = 60.0;       // C: 140 F
constexpr double kChilledWaterLeaving = 6.67;  // C: 44 F
constexpr double kTowerApproach = 3.9;         // K: 7 F (ASHRAE 90.1-2019 G3.1.3.11)
constexpr double kHeatPumpCutOut = -8.0;       // C: compressor off below

double Clamp(double v, double lo, double hi) {
    return std::min(std::max(v, lo), hi);
}

double Biquadratic(const double (&c)[6], double x, double y) {
    return c[0] + c[1] * x + c[2] * x * x + c[3] * y + c[4] * y * y + c[5] * x * y;
}

// DOE-2.1E packaged DX curves as converted to degrees C for the EnergyPlus
// example files (US DOE, EnergyPlus 7.1 "AirflowNetwork_MultiZone_House"):
// x entering coil wet bulb 12.8..23.9 C, y outdoor dry bulb 18..46.1 C.
// UNVERIFIED: not yet checked against a published copy of these curves.
constexpr double kDxCapFT[6] = {0.942587793,  0.009543347, 0.000683770,
                                -0.011042676, 0.000005249, -0.000009720};
constexpr double kDxEirFT[6] = {0.342414409, 0.034885008, -0.000623700,
                                0.004977216, 0.000437951, -0.000728028};
// DOE-2 centrifugal chiller "DOE-2 Centrifugal/5.50COP" (EnergyPlus data set
// Chillers.idf): x leaving chilled water 5..10 C, y entering condenser water
// 24..35 C; EIR of part load quadratic.
// UNVERIFIED: not yet checked against a published copy of these curves.
constexpr double kChillerCapFT[6] = {0.257896,  0.0389016,   -0.00021708,
                                     0.0468684, -0.00094284, -0.00034344};
constexpr double kChillerEirFT[6] = {0.933884, -0.058212, 0.00450036, 0.00243, 0.000486, -0.001215};
constexpr double kChillerEirFPlr[3] = {0.222903, 0.313387, 0.463710};

}  // namespace

double CopFromSeer(double seer) {
    return -0.0076 * seer * seer + 0.3796 * seer;
}
double CopFromEer(double eer, double capacityBtuh) {
    return 7.84e-8 * eer * capacityBtuh + 0.338 * eer;
}
double HeatingCopFromHspf(double hspf) {
    return -0.0296 * hspf * hspf + 0.7134 * hspf;
}
double HeatingCopFromCop47(double cop47, double capacityBtuh) {
    return 1.48e-7 * cop47 * capacityBtuh + 1.062 * cop47;
}

double DxCapacityRatio(double wb, double odb) {
    return Biquadratic(kDxCapFT, Clamp(wb, 12.8, 23.9), Clamp(odb, 18.0, 46.1));
}
double DxEirRatio(double wb, double odb) {
    return Biquadratic(kDxEirFT, Clamp(wb, 12.8, 23.9), Clamp(odb, 18.0, 46.1));
}
// Cycling loss of single-speed DX units: PLF = 0.85 + 0.15 PLR (the DOE-2
// default, EnergyPlus Engineering Reference, DX coil part-load fraction).
double DxPartLoadFactor(double plr) {
    return 0.85 + 0.15 * Clamp(plr, 0.0, 1.0);
}

double ChillerCapacityRatio(double chw, double cw) {
    return Biquadratic(kChillerCapFT, Clamp(chw, 5.0, 10.0), Clamp(cw, 24.0, 35.0));
}
double ChillerEirRatio(double chw, double cw) {
    return Biquadratic(kChillerEirFT, Clamp(chw, 5.0, 10.0), Clamp(cw, 24.0, 35.0));
}
// Below the minimum unloading ratio of 0.1 the machine cycles at that ratio.
double ChillerPartLoadPower(double plr) {
    plr = Clamp(plr, 0.0, 1.0);
    const double p = std::max(plr, 0.1);
    const double frac = kChillerEirFPlr[0] + kChillerEirFPlr[1] * p + kChillerEirFPlr[2] * p * p;
    return plr < 0.1 ? frac * plr / 0.1 : frac;
}

// DOE-2 air-source heat pump heating curves as cubics of the outdoor dry
// bulb in C (EnergyPlus example files, HPACHeatCapFT and HPACHeatEIRFT),
// both 1 at the 8.33 C (47 F) rating; range -20..20 C.
// UNVERIFIED: written from memory, not yet checked against a published copy.
double HeatPumpCapacityRatio(double odb) {
    const double t = Clamp(odb, -20.0, 20.0);
    return 0.758746 + t * (0.027626 + t * (0.000148716 + t * 0.0000034992));
}
double HeatPumpEirRatio(double odb) {
    const double t = Clamp(odb, -20.0, 20.0);
    return 1.19248 + t * (-0.0300438 + t * (0.00103745 - t * 0.000023328));
}

// Heat-input ratio of part load, DOE-2.2 defaults (Hirsch, DOE-2.2
// Dictionary, curves FURNACE-HIR-FPLR and HW-BOILER-HIR-FPLR): the
// fraction of full-load fuel at a part-load ratio.
// UNVERIFIED: written from memory, not yet checked against a published copy.
double FurnacePartLoadInput(double plr) {
    plr = Clamp(plr, 0.0, 1.0);
    return 0.01861 + 1.09421 * plr - 0.11282 * plr * plr;
}
double BoilerPartLoadInput(double plr) {
    plr = Clamp(plr, 0.0, 1.0);
    return 0.082597 + 0.996764 * plr - 0.079361 * plr * plr;
}

// ASHRAE 90.1-2019 G3.1.3.15, variable-speed fan: fraction of design power
// at a fraction of design flow; the boxes hold at least 30 % of the flow.
double VariableVolumeFanPower(double flowFraction) {
    const double f = Clamp(flowFraction, 0.3, 1.0);
    return 0.0013 + 0.1470 * f + 0.9506 * f * f - 0.0998 * f * f * f;
}

// Stull, R. (2011), Wet-bulb temperature from relative humidity and air
// temperature, J. Appl. Meteor. Climatol. 50, 2267-2269; RH 5..99 %.
double WetBulb(double t, double rh) {
    rh = Clamp(rh, 5.0, 99.0);
    return t * std::atan(0.151977 * std::sqrt(rh + 8.313659)) + std::atan(t + rh) -
           std::atan(rh - 1.676331) + 0.00391838 * std::pow(rh, 1.5) * std::atan(0.023101 * rh) -
           4.686035;
}

// Burch, J. & Christensen, C. (2007), Towards development of an algorithm
// for mains water temperature, ASES Solar 2007 (NREL), in deg F.
double MainsTemperature(double annualMean, double monthlySpread, int dayOfYear, double latitude) {
    const double tavg = annualMean * 1.8 + 32.0;
    const double ratio = 0.4 + 0.01 * (tavg - 44.0);
    const double lag = 35.0 - (tavg - 44.0);
    const int day = latitude < 0 ? dayOfYear + 182 : dayOfYear;
    const double deg = std::numbers::pi / 180.0;
    const double f =
        tavg + 6.0 +
        ratio * monthlySpread * 1.8 / 2.0 * std::sin((0.986 * (day + 1 - 15 - lag) - 90.0) * deg);
    return std::max((f - 32.0) / 1.8, 0.5);
}

ZoneSystem SystemOfType(int type, int heatingType, double coolingFigure, double heatingEff,
                        double staticPressureInches) {
    ZoneSystem s;
    s.hvacType = type;
    s.staticPressure = std::max(staticPressureInches, 0.0) * 248.84;
    const bool hydronic =
        type == 1 || type == 2 || type == 4 || type == 5 || type == 7 || type == 10;
    switch (type) {
        case 1:
        case 2:
        case 5:
        case 7:
            s.cooling = CoolingPlant::WaterChiller;
            s.coolingRatingKind = Rating::Cop;
            s.coolingRating = coolingFigure / kBtuhPerW;
            break;
        case 15:
            s.cooling = CoolingPlant::Evaporative;
            s.coolingRatingKind = Rating::Cop;
            s.coolingRating = coolingFigure / kBtuhPerW;
            s.supplyTemperature = 18.3;
            break;
        case 6:
            s.cooling = CoolingPlant::WaterSourceDx;
            s.coolingRatingKind = Rating::Eer;
            s.coolingRating = coolingFigure;
            break;
        case 9:
        case 11:
        case 12:
        case 13:
            s.cooling = CoolingPlant::AirCooledDx;
            s.coolingRatingKind = Rating::Seer;
            s.coolingRating = coolingFigure;
            break;
        default:  // 3, 4, 8, 10, 14: rated by EER or IEER
            s.cooling = type >= 1 && type <= 15 ? CoolingPlant::AirCooledDx : CoolingPlant::None;
            s.coolingRatingKind = Rating::Eer;
            s.coolingRating = coolingFigure;
    }
    s.variableVolume = type >= 1 && type <= 4;
    if (s.cooling != CoolingPlant::None && s.coolingRating <= 0) s.coolingRating = 10.0;
    switch (heatingType) {
        case 2:
            s.heating = HeatingPlant::Electric;
            s.heatingRating = 1.0;
            break;
        case 3:
            s.heating =
                type == 6 ? HeatingPlant::WaterSourceHeatPump : HeatingPlant::AirSourceHeatPump;
            s.heatingRatingKind = type == 9 || type == 13 ? Rating::Hspf : Rating::Cop47;
            s.heatingRating = heatingEff > 1.5 ? heatingEff : 3.3;
            if (s.heatingRatingKind == Rating::Hspf) s.heatingRating *= kBtuhPerW;
            break;
        default:
            s.heating = hydronic ? HeatingPlant::Boiler : HeatingPlant::Furnace;
            s.heatingRating = heatingEff > 0 && heatingEff <= 1.5 ? heatingEff : 0.8;
    }
    s.electricWaterHeater = heatingType != 1;
    return s;
}

double SystemsResults::Electric(int use) const {
    double t = 0;
    for (double v : electric[use]) t += v;
    return t;
}
double SystemsResults::Fuel(int use) const {
    double t = 0;
    for (double v : fuel[use]) t += v;
    return t;
}
double SystemsResults::TotalElectric() const {
    double t = 0;
    for (int u = 0; u < kEndUseCount; ++u) t += Electric(u);
    return t;
}
double SystemsResults::TotalFuel() const {
    double t = 0;
    for (int u = 0; u < kEndUseCount; ++u) t += Fuel(u);
    return t;
}

SystemsResults SimulateSystems(const Building& b, const RunResults& run, const WeatherYear& w,
                               const RunOptions& opt, const std::vector<ZoneSystem>& systems) {
    SystemsResults out;
    out.zones.resize(run.zones.size());
    out.peakDemandHour.fill(-1);
    std::vector<double> demand(kHoursPerYear, 0.0);
    std::vector<char> counted(kHoursPerYear, 0);
    const int begin = std::clamp(opt.beginDay, 1, 365) - 1;
    const int end = std::clamp(opt.endDay, opt.beginDay, 365) - 1;
    for (int d = begin; d <= end; ++d)
        if (!opt.skipMonth[MonthOfDay(d)])
            std::fill_n(counted.begin() + d * 24, 24, static_cast<char>(1));
    std::vector<double> wetBulb(kHoursPerYear);
    std::array<double, 12> monthMean{};
    for (int h = 0; h < kHoursPerYear; ++h) {
        const WeatherHour& wh = w.hours[h];
        wetBulb[h] = WetBulb(wh.dryBulb, wh.relativeHumidity);
        monthMean[MonthOfDay(h / 24)] += wh.dryBulb / 24.0;
    }
    double annualMean = 0, lo = 1e9, hi = -1e9;
    for (int m = 0; m < 12; ++m) {
        monthMean[m] /= kMonthStartDay[m + 1] - kMonthStartDay[m];
        annualMean += monthMean[m] / 12.0;
        lo = std::min(lo, monthMean[m]), hi = std::max(hi, monthMean[m]);
    }
    std::array<double, 365> mains{};
    for (int d = 0; d < 365; ++d)
        mains[d] = MainsTemperature(annualMean, hi - lo, d, w.site.latitude);
    auto profile = [&](int index, int weekday, int hour) {
        return index < 0 || index >= static_cast<int>(b.profiles.size())
                   ? 1.0
                   : b.profiles[index].At(weekday, hour);
    };

    for (std::size_t z = 0; z < run.zones.size() && z < systems.size(); ++z) {
        const ZoneResults& zr = run.zones[z];
        const ZoneSystem& s = systems[z];
        ZoneSystemResults& o = out.zones[z];
        if (zr.heating.size() != kHoursPerYear) continue;
        // ---- sizing at the peak hours --------------------------------------
        const int hc = zr.peakCoolingHour, hh = zr.peakHeatingHour;
        if (hc >= 0 && s.cooling != CoolingPlant::None) {
            const double t = w.hours[hc].dryBulb;
            double ratio = 1;
            if (s.cooling == CoolingPlant::AirCooledDx) ratio = DxCapacityRatio(kCoilWetBulb, t);
            if (s.cooling == CoolingPlant::WaterChiller)
                ratio = ChillerCapacityRatio(kChilledWaterLeaving, wetBulb[hc] + kTowerApproach);
            o.coolingCapacity = 1.15 * zr.peakCooling / std::max(ratio, 0.3);
        }
        double heatPumpRated = 0;
        if (hh >= 0 && s.heating != HeatingPlant::None) {
            o.heatingCapacity = 1.25 * zr.peakHeating;
            if (s.heating == HeatingPlant::AirSourceHeatPump)
                heatPumpRated = std::max(o.coolingCapacity, o.heatingCapacity);
            if (s.heating == HeatingPlant::WaterSourceHeatPump)
                heatPumpRated = std::max(o.coolingCapacity, o.heatingCapacity);
        }
        // Rated COPs without fan power.
        const double qBtuh = o.coolingCapacity * kBtuhPerW;
        double cop = s.coolingRating;
        if (s.coolingRatingKind == Rating::Seer) cop = CopFromSeer(s.coolingRating);
        if (s.coolingRatingKind == Rating::Eer) cop = CopFromEer(s.coolingRating, qBtuh);
        double hpCop = s.heatingRating;
        if (s.heatingRatingKind == Rating::Hspf) hpCop = HeatingCopFromHspf(s.heatingRating);
        if (s.heatingRatingKind == Rating::Cop47)
            hpCop = HeatingCopFromCop47(s.heatingRating, heatPumpRated * kBtuhPerW);
        // Design air flow: the cooling peak at the supply temperature against
        // a 23.9 C room, or the heating peak at 43.3 C supply against 21.1 C;
        // never below the outdoor air.
        const double coolFlow =
            o.coolingCapacity / (kAirRhoCp * std::max(23.9 - s.supplyTemperature, 3.0));
        const double heatFlow = o.heatingCapacity / (kAirRhoCp * 22.2);
        o.airFlow = std::max({coolFlow, heatFlow, b.zones[z].outdoorAirFlow});
        o.fanPower = o.airFlow * s.staticPressure / s.fanEfficiency;
        // Hot water: the weekly mean of the profile's daily sums makes the
        // average day.
        double weekSum = 0;
        for (int wd = 0; wd < 7; ++wd)
            for (int hr = 0; hr < 24; ++hr) weekSum += profile(s.hotWaterProfile, wd, hr);
        const double dayMean = weekSum / 7.0;

        // ---- hour by hour ---------------------------------------------------
        for (int h = 0; h < kHoursPerYear; ++h) {
            if (!counted[h]) continue;
            const int day = h / 24, hour = h % 24, month = MonthOfDay(day);
            const int weekday = (opt.firstWeekday + day) % 7;
            const double odb = w.hours[h].dryBulb;
            const double qc = zr.cooling[h], qh = zr.heating[h];
            double elec[kEndUseCount] = {}, fuel[kEndUseCount] = {};
            double plrC = 0, plrH = 0;
            // Cooling.
            if (qc > 0 && s.cooling != CoolingPlant::None && o.coolingCapacity > 0) {
                double cap = o.coolingCapacity, power = 0;
                switch (s.cooling) {
                    case CoolingPlant::AirCooledDx: {
                        cap *= DxCapacityRatio(kCoilWetBulb, odb);
                        const double plr = std::min(qc / cap, 1.0);
                        power =
                            cap / cop * DxEirRatio(kCoilWetBulb, odb) * plr / DxPartLoadFactor(plr);
                        break;
                    }
                    case CoolingPlant::WaterChiller: {
                        const double cw = wetBulb[h] + kTowerApproach;
                        cap *= ChillerCapacityRatio(kChilledWaterLeaving, cw);
                        const double plr = std::min(qc / cap, 1.0);
                        power = cap / cop * ChillerEirRatio(kChilledWaterLeaving, cw) *
                                ChillerPartLoadPower(plr);
                        // Chilled water 22 W/gpm at a 12 F rise, condenser
                        // water 19 W/gpm at a 10 F range (ASHRAE 90.1-2019
                        // G3.1.3.10, G3.1.3.11), flow with the load.
                        const double met = std::min(qc, cap);
                        const double chw = met / (kWaterRhoCp * 6.67) * kGpmPerM3s;
                        const double cnd = (met + power) / (kWaterRhoCp * 5.56) * kGpmPerM3s;
                        elec[kUsePumps] += 22.0 * chw + 19.0 * cnd;
                        break;
                    }
                    case CoolingPlant::WaterSourceDx:
                    case CoolingPlant::Evaporative: {
                        const double plr = std::min(qc / cap, 1.0);
                        power = cap / cop * plr / DxPartLoadFactor(plr);
                        break;
                    }
                    case CoolingPlant::None:
                        break;
                }
                elec[kUseCooling] += power;
                plrC = std::min(qc / cap, 1.0);
                if (qc > cap * (1 + 1e-6)) {
                    ++o.unmetCoolingHours;
                    o.unmetCooling += qc - cap;
                }
            } else if (qc > 0) {
                ++o.unmetCoolingHours;
                o.unmetCooling += qc;
            }
            // Heating.
            if (qh > 0 && s.heating != HeatingPlant::None && o.heatingCapacity > 0) {
                const double cap = o.heatingCapacity;
                double delivered = std::min(qh, cap);
                switch (s.heating) {
                    case HeatingPlant::Furnace:
                    case HeatingPlant::Boiler: {
                        const double plr = std::min(qh / cap, 1.0);
                        const double full = cap / s.heatingRating;
                        fuel[kUseHeating] +=
                            full * (s.heating == HeatingPlant::Furnace ? FurnacePartLoadInput(plr)
                                                                       : BoilerPartLoadInput(plr));
                        if (s.heating == HeatingPlant::Boiler)  // 19 W/gpm at a 50 F drop
                            elec[kUsePumps] +=
                                19.0 * std::min(qh, cap) / (kWaterRhoCp * 27.8) * kGpmPerM3s;
                        plrH = plr;
                        break;
                    }
                    case HeatingPlant::Electric:
                        elec[kUseHeating] += std::min(qh, cap);
                        plrH = std::min(qh / cap, 1.0);
                        break;
                    case HeatingPlant::AirSourceHeatPump:
                    case HeatingPlant::WaterSourceHeatPump: {
                        const bool air = s.heating == HeatingPlant::AirSourceHeatPump;
                        const double hpCap =
                            air ? (odb < kHeatPumpCutOut
                                       ? 0.0
                                       : heatPumpRated * HeatPumpCapacityRatio(odb))
                                : heatPumpRated;
                        const double byHp = std::min(qh, hpCap);
                        if (byHp > 0) {
                            const double plr = byHp / hpCap;
                            elec[kUseHeating] += hpCap / hpCop *
                                                 (air ? HeatPumpEirRatio(odb) : 1.0) * plr /
                                                 DxPartLoadFactor(plr);
                        }
                        // Electric resistance for the rest, up to the sized capacity.
                        elec[kUseHeating] += std::min(qh - byHp, cap);
                        delivered = byHp + std::min(qh - byHp, cap);
                        plrH = std::min(qh / std::max(cap, hpCap), 1.0);
                        break;
                    }
                    case HeatingPlant::None:
                        break;
                }
                if (qh > delivered * (1 + 1e-6)) {
                    ++o.unmetHeatingHours;
                    o.unmetHeating += qh - delivered;
                }
            } else if (qh > 0) {
                ++o.unmetHeatingHours;
                o.unmetHeating += qh;
            }
            // Fans: on with the fan profile, else cycling with the load.
            if (o.fanPower > 0) {
                const bool scheduled = profile(s.fanProfile, weekday, hour) > 0;
                const double load = std::max(plrC, plrH);
                if (s.variableVolume)
                    elec[kUseFans] +=
                        scheduled || load > 0 ? o.fanPower * VariableVolumeFanPower(load) : 0.0;
                else
                    elec[kUseFans] += o.fanPower * (scheduled ? 1.0 : load);
            }
            // Service hot water.
            if (s.hotWaterPerDay > 0 && dayMean > 0) {
                const double v =
                    s.hotWaterPerDay * profile(s.hotWaterProfile, weekday, hour) / dayMean;
                const double q =
                    v * kWaterRhoCp * std::max(kHotWaterSupply - mains[day], 0.0) / 3600.0;
                o.hotWaterVolume += v;
                out.hotWaterVolume[month] += v;
                // Gas storage heater 0.80 thermal efficiency (ASHRAE 90.1-2019
                // Table 7.8); electric resistance 1.
                if (s.electricWaterHeater)
                    elec[kUseHotWater] += q;
                else
                    fuel[kUseHotWater] += q / 0.80;
            }
            // Lights and receptacles: what the heat balance took as gains.
            if (!zr.lights.empty()) {
                elec[kUseLights] += zr.lights[h];
                elec[kUseReceptacles] += zr.equipment[h];
            }
            double total = 0;
            for (int u = 0; u < kEndUseCount; ++u) {
                out.electric[u][month] += elec[u];
                out.fuel[u][month] += fuel[u];
                total += elec[u];
            }
            demand[h] += total;
        }
    }
    for (int h = 0; h < kHoursPerYear; ++h) {
        const int m = MonthOfDay(h / 24);
        if (counted[h] && demand[h] > out.peakDemand[m]) {
            out.peakDemand[m] = demand[h];
            out.peakDemandHour[m] = h;
        }
    }
    return out;
}

}  // namespace solvane::engine
