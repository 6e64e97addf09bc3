#include "engine/hvac_systems.h"

#include "engine/psychrometrics.h"
#include "engine/root_finding.h"

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
// Gross sensible heat ratio of a sized coil at the rating, a typical figure
// of unitary equipment at AHRI conditions (EnergyPlus autosizes 0.7 to 0.8).
constexpr double kRatedShr = 0.8;

double Clamp(double v, double lo, double hi) {
    return std::min(std::max(v, lo), hi);
}

double Biquadratic(const double (&c)[6], double x, double y) {
    return c[0] + c[1] * x + c[2] * x * x + c[3] * y + c[4] * y * y + c[5] * x * y;
}

// DOE-2 centrifugal chiller "DOE-2 Centrifugal/5.50COP" of the EnergyPlus
// reference data set (US DOE; NREL/EnergyPlus, datasets/Chillers.idf, the
// same as DOE-2.1E HERM-CENT-CAP-FT, -EIR-FT and -EIR-FPLR): x leaving
// chilled water 5..10 C, y entering condenser water 24..35 C; EIR of part
// load quadratic; minimum part-load ratio 0.1, minimum unloading ratio 0.2.
constexpr double kChillerCapFT[6] = {0.257896,  0.0389016,   -0.00021708,
                                     0.0468684, -0.00094284, -0.00034344};
constexpr double kChillerEirFT[6] = {0.933884, -0.058212, 0.00450036, 0.00243, 0.000486, -0.001215};
constexpr double kChillerEirFPlr[3] = {0.222903, 0.313387, 0.463710};
constexpr double kChillerMinPlr = 0.1, kChillerMinUnloading = 0.2;

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

// The generic single-speed DX unit's curves (DxPerformance defaults,
// dx_coil.h): the DOE-2 packaged DX biquadratics as converted to deg C in
// the EnergyPlus example files (US DOE, curves WindACCoolCapFT and
// WindACEIRFT, also HPACCoolCapFT and HPACEIRFT; the same figures stand in
// LBNL's Modelica Buildings library, DXCoils ...PerformanceCurves.Curve_I):
// x entering wet bulb 12.8..23.9 C, y outdoor dry bulb 18..46.1 C.
double DxCapacityRatio(double wb, double odb) {
    const DxPerformance u;
    return Biquadratic(u.capFT, Clamp(wb, u.wetBulbMin, u.wetBulbMax),
                       Clamp(odb, u.dryBulbMin, u.dryBulbMax));
}
double DxEirRatio(double wb, double odb) {
    const DxPerformance u;
    return Biquadratic(u.eirFT, Clamp(wb, u.wetBulbMin, u.wetBulbMax),
                       Clamp(odb, u.dryBulbMin, u.dryBulbMax));
}
// Cycling loss of single-speed DX units: PLF = 0.85 + 0.15 PLR (the
// EnergyPlus example files' WindACPLFFPLR and HPACCOOLPLFFPLR).
double DxPartLoadFactor(double plr) {
    return PartLoadFraction(DxPerformance{}, plr);
}

double ChillerCapacityRatio(double chw, double cw) {
    return Biquadratic(kChillerCapFT, Clamp(chw, 5.0, 10.0), Clamp(cw, 24.0, 35.0));
}
double ChillerEirRatio(double chw, double cw) {
    return Biquadratic(kChillerEirFT, Clamp(chw, 5.0, 10.0), Clamp(cw, 24.0, 35.0));
}
// Below the minimum unloading ratio the machine holds its power there
// (false loading); below the minimum part-load ratio it cycles at that
// ratio (EnergyPlus Engineering Reference, Chiller:Electric:EIR).
double ChillerPartLoadPower(double plr) {
    plr = Clamp(plr, 0.0, 1.0);
    const double p = std::max(plr, kChillerMinUnloading);
    const double frac = kChillerEirFPlr[0] + kChillerEirFPlr[1] * p + kChillerEirFPlr[2] * p * p;
    return plr < kChillerMinPlr ? frac * plr / kChillerMinPlr : frac;
}

// DOE-2 air-source heat pump heating curves as cubics of the outdoor dry
// bulb in C (EnergyPlus example files, HPACHeatCapFT and HPACHeatEIRFT;
// the same figures are OpenStudio's defaults for a DX heating coil), both
// 1 at the 8.33 C (47 F) rating; range -20..20 C.
double HeatPumpCapacityRatio(double odb) {
    const double t = Clamp(odb, -20.0, 20.0);
    return 0.758746 + t * (0.027626 + t * (0.000148716 + t * 0.0000034992));
}
double HeatPumpEirRatio(double odb) {
    const double t = Clamp(odb, -20.0, 20.0);
    return 1.19248 + t * (-0.0300438 + t * (0.00103745 - t * 0.000023328));
}

// Heat-input ratio of part load: the fraction of full-load fuel at a
// part-load ratio. Furnace: the cubic of the HVAC BESTEST fuel-fired
// furnace (Purdy & Beausoleil-Morrison 2003, ASHRAE 140 cases HE100 to
// HE230, as given in NREL/EnergyPlusValidationReports, HE100230).
double FurnacePartLoadInput(double plr) {
    plr = Clamp(plr, 0.0, 1.0);
    return 0.0080472574 + plr * (0.87564457 + plr * (0.29249943 - 0.17624156 * plr));
}
// Boiler: DOE-2.2 HW-BOILER-HIR-FPLR.
// UNVERIFIED: written from memory; no published copy was found to check it.
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

double EconomizerHighLimit(const std::string& zone) {
    int number = -1;
    bool moist = false;
    for (char c : zone) {
        if (c >= '0' && c <= '9' && number < 0) number = c - '0';
        if (c == 'A' || c == 'a') moist = true;
    }
    const double f = moist && number >= 0 && number <= 4 ? 65.0 : (moist ? 70.0 : 75.0);
    return (f - 32.0) / 1.8;
}

std::vector<std::string> AttachDxPerformance(const Building& b, std::vector<ZoneSystem>& systems,
                                             const std::map<std::string, DxPerformance>& maps) {
    std::vector<std::string> notes;
    for (const auto& [number, unit] : maps) {
        bool found = false;
        for (std::size_t z = 0; z < b.zones.size() && z < systems.size(); ++z) {
            if (b.zones[z].number != number) continue;
            found = true;
            if (systems[z].cooling == CoolingPlant::AirCooledDx)
                systems[z].dxMap = unit;
            else
                notes.push_back("Zone " + number +
                                ": Solv2020.dx gives a DX unit's map, but the zone's system is "
                                "not an air-cooled DX unit; the map is left out");
        }
        if (!found)
            notes.push_back("Solv2020.dx: no zone " + number +
                            " in the project; its map is left out");
    }
    return notes;
}

SystemsResults SimulateSystems(const Building& b, const RunResults& run, const WeatherYear& w,
                               const RunOptions& opt, const std::vector<ZoneSystem>& systems,
                               const DesignLoads* design) {
    SystemsResults out;
    out.zones.resize(run.zones.size());
    if (design) out.sizedOnDesignDays = true, out.design = design->conditions;
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
        const Zone& zone = b.zones[z];
        ZoneSystemResults& o = out.zones[z];
        if (zr.heating.size() != kHoursPerYear) continue;
        const bool mapped = s.dxMap.has_value() && s.cooling == CoolingPlant::AirCooledDx;
        // A coil that dehumidifies: every plant but the evaporative cooler.
        const bool wetCoil =
            s.cooling != CoolingPlant::None && s.cooling != CoolingPlant::Evaporative;
        // ---- sizing at the peak hours --------------------------------------
        // The design days' peaks and conditions, or the year's peak hour.
        const bool designed = design && z < design->cooling.size();
        const int hc = zr.peakCoolingHour, hh = zr.peakHeatingHour;
        const double coolPeak = designed ? design->cooling[z] : zr.peakCooling;
        const double heatPeak = designed ? design->heating[z] : zr.peakHeating;
        if ((designed ? coolPeak > 0 : hc >= 0) && s.cooling != CoolingPlant::None) {
            const double t = designed ? design->conditions.summerDryBulb : w.hours[hc].dryBulb;
            const double wb = designed ? design->conditions.summerWetBulb : wetBulb[hc];
            double ratio = 1;
            if (s.cooling == CoolingPlant::AirCooledDx) ratio = DxCapacityRatio(kCoilWetBulb, t);
            if (s.cooling == CoolingPlant::WaterChiller)
                ratio = ChillerCapacityRatio(kChilledWaterLeaving, wb + kTowerApproach);
            // A wet coil's rated total is its sensible peak over the rated
            // sensible heat ratio.
            o.coolingCapacity =
                1.15 * coolPeak / std::max(ratio, 0.3) / (wetCoil ? kRatedShr : 1.0);
        }
        if (mapped) o.coolingCapacity = s.dxMap->ratedCapacity;
        double heatPumpRated = 0;
        if ((designed ? heatPeak > 0 : hh >= 0) && s.heating != HeatingPlant::None) {
            o.heatingCapacity = 1.25 * heatPeak;
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
        // Design air flow: the cooling peak's sensible part at the supply
        // temperature against a 23.9 C room, or the heating peak at 43.3 C
        // supply against 21.1 C; never below the outdoor air.
        const double coolFlow = o.coolingCapacity * (wetCoil ? kRatedShr : 1.0) /
                                (kAirRhoCp * std::max(23.9 - s.supplyTemperature, 3.0));
        const double heatFlow = o.heatingCapacity / (kAirRhoCp * 22.2);
        o.airFlow = std::max({coolFlow, heatFlow, zone.outdoorAirFlow});
        o.fanPower = o.airFlow * s.staticPressure / s.fanEfficiency;
        // The cooling coil: a mapped unit as its map gives it; otherwise the
        // sized unit with the generic curves (chilled-water and water-source
        // coils without the outdoor curves), at its rated sensible heat ratio.
        DxPerformance coil;
        if (mapped) {
            coil = *s.dxMap;
            o.airFlow = coil.airFlow;
            o.fanPower = 0;  // the mapped unit's fans cycle with it
        } else {
            coil.ratedCapacity = o.coolingCapacity;
            coil.ratedShr = kRatedShr;
            coil.ratedCop = cop;
            coil.airFlow = std::max(coolFlow, 1e-6);
            if (s.cooling != CoolingPlant::AirCooledDx) {
                std::fill(std::begin(coil.capFT), std::end(coil.capFT), 0.0);
                std::fill(std::begin(coil.eirFT), std::end(coil.eirFT), 0.0);
                coil.capFT[0] = coil.eirFT[0] = 1.0;
            }
        }
        const double pressure0 = w.hours[0].pressure > 50000 ? w.hours[0].pressure : 101325.0;
        const double bypass = wetCoil ? RatedBypassConstant(coil, pressure0) : 0.0;
        DryEdgeCache dryEdges;
        // Hot water: the weekly mean of the profile's daily sums makes the
        // average day.
        double weekSum = 0;
        for (int wd = 0; wd < 7; ++wd)
            for (int hr = 0; hr < 24; ++hr) weekSum += profile(s.hotWaterProfile, wd, hr);
        const double dayMean = weekSum / 7.0;
        // The zone's humidity ratio, from the outdoor air's at the start.
        double humidity = -1;
        const double airMass = std::max(zone.volume, 1.0) * 1.2;  // kg

        // ---- hour by hour ---------------------------------------------------
        for (int h = 0; h < kHoursPerYear; ++h) {
            if (!counted[h]) continue;
            const int day = h / 24, hour = h % 24, month = MonthOfDay(day);
            const int weekday = (opt.firstWeekday + day) % 7;
            const WeatherHour& wh = w.hours[h];
            const double odb = wh.dryBulb;
            const double pressure = wh.pressure > 50000 ? wh.pressure : 101325.0;
            const double tz = zr.airTemperature.empty() ? 23.9 : zr.airTemperature[h];
            const double wOut = HumidityRatioOfRh(odb, wh.relativeHumidity, pressure);
            const double saturated = SaturationHumidityRatio(tz, pressure);
            if (humidity < 0) humidity = std::min(wOut, saturated);
            double qc = zr.cooling[h];
            const double qh = zr.heating[h];
            double elec[kEndUseCount] = {}, fuel[kEndUseCount] = {};
            double plrC = 0, plrH = 0;
            // Moisture sources of the hour: people (kg/s of vapour) and the
            // outdoor and infiltration air (kg/s of dry air).
            const double vapour = zone.gains.peopleLatent *
                                  profile(zone.gains.peopleProfile, weekday, hour) / kLatentHeat;
            const double rho = AirDensity(pressure, odb);
            double airIn = zone.infiltrationAch * zone.volume / 3600.0 * rho;
            if (profile(zone.outdoorAirProfile, weekday, hour) > 0)
                airIn += zone.outdoorAirFlow * rho;
            // Economiser: while the fans run and the outdoor air is below the
            // high limit and the room, outdoor air beyond the minimum (up to
            // the design flow) takes the cooling load first.
            if (s.economizer && qc > 0 && odb < s.economizerHighLimit && odb < tz - 0.5 &&
                profile(s.fanProfile, weekday, hour) > 0) {
                const double extra = std::max(o.airFlow - zone.outdoorAirFlow, 0.0) * rho;
                const double free = std::min(qc, extra * 1006.0 * (tz - odb));
                if (free > 0) {
                    qc -= free;
                    airIn += free / (1006.0 * (tz - odb));
                    o.economizerCooling += free;
                }
            }
            const double storage = airMass / 3600.0;
            const double noCoil = (storage * humidity + vapour + airIn * wOut) / (storage + airIn);
            double newHumidity = noCoil;
            // Cooling.
            if (qc > 0 && s.cooling != CoolingPlant::None && o.coolingCapacity > 0) {
                const double fanHeat = mapped ? coil.supplyFanPower : 0.0;
                struct CoilHour {
                    CoilState state;
                    double net = 0, met = 0, plr = 0, runTime = 0, sensible = 0, latent = 0;
                };
                auto coilHour = [&](double wIn) {
                    CoilHour c;
                    c.state = CoilAt(coil, bypass, tz, std::min(wIn, saturated), odb, pressure,
                                     &dryEdges);
                    const double qs = c.state.total * c.state.shr;
                    c.net = qs - fanHeat;
                    c.met = std::clamp(qc, 0.0, std::max(c.net, 0.0));
                    c.plr = c.net > 0 ? c.met / c.net : 0.0;
                    c.runTime = std::min(c.plr / PartLoadFraction(coil, c.plr), 1.0);
                    c.sensible = c.met + fanHeat * c.runTime;
                    c.latent = qs > 0 ? c.state.total * (1 - c.state.shr) * c.sensible / qs : 0.0;
                    return c;
                };
                CoilHour c{};
                if (s.cooling == CoolingPlant::Evaporative) {
                    c.net = o.coolingCapacity;
                    c.met = std::min(qc, c.net);
                    c.plr = c.met / c.net;
                    c.sensible = c.met;
                } else {
                    // The zone's humidity at the hour's end with the coil
                    // removing condensate at that humidity (implicit):
                    // storage (W - W0) = vapour + air (Wo - W) - latent(W) / hfg.
                    c = coilHour(noCoil);
                    if (c.latent > 0) {
                        // Illinois steps between the drier end, where the
                        // coil takes more than the zone's surplus, and no coil.
                        const double k = storage + airIn;
                        auto residual = [&](double wz, const CoilHour& ch) {
                            return k * (wz - noCoil) + ch.latent / kLatentHeat;
                        };
                        double hi = noCoil, fhi = residual(hi, c);
                        double lo = std::max(noCoil - c.latent / kLatentHeat / k, 1e-5);
                        CoilHour clo = coilHour(lo), chi = c;
                        double flo = residual(lo, clo);
                        int side = 0;
                        for (int i = 0; i < 20 && flo < 0 && hi - lo > 1e-6; ++i) {
                            const double x = (lo * fhi - hi * flo) / (fhi - flo);
                            const CoilHour cx = coilHour(x);
                            const double fx = residual(x, cx);
                            if (fx > 0) {
                                hi = x, fhi = fx, chi = cx;
                                if (side == 1) flo *= 0.5;
                                side = 1;
                            } else {
                                lo = x, flo = fx, clo = cx;
                                if (side == -1) fhi *= 0.5;
                                side = -1;
                            }
                            if (std::fabs(fx) < 1e-9 * k) break;
                        }
                        // The end nearer the balance.
                        const bool low =
                            std::fabs(residual(lo, clo)) <= std::fabs(residual(hi, chi));
                        newHumidity = low ? lo : hi;
                        c = low ? clo : chi;
                    }
                }
                double power = 0;
                switch (s.cooling) {
                    case CoolingPlant::AirCooledDx: {
                        power = c.state.power * c.runTime;
                        if (mapped) {
                            const double fans = coil.outdoorFanPower * c.runTime;
                            o.outdoorFan[month] += fans;
                            o.compressor[month] += power - fans;
                            o.indoorFan[month] += coil.supplyFanPower * c.runTime;
                            elec[kUseFans] += coil.supplyFanPower * c.runTime;
                        } else {
                            o.compressor[month] += power;
                        }
                        break;
                    }
                    case CoolingPlant::WaterChiller: {
                        // The chiller carries the coil's total: sensible and latent.
                        const double load = c.sensible + c.latent;
                        const double cw = wetBulb[h] + kTowerApproach;
                        const double cap =
                            o.coolingCapacity * ChillerCapacityRatio(kChilledWaterLeaving, cw);
                        const double plr = std::min(load / cap, 1.0);
                        power = cap / cop * ChillerEirRatio(kChilledWaterLeaving, cw) *
                                ChillerPartLoadPower(plr);
                        // Chilled water 22 W/gpm at a 12 F rise, condenser
                        // water 19 W/gpm at a 10 F range (ASHRAE 90.1-2019
                        // G3.1.3.10, G3.1.3.11), flow with the load.
                        const double met = std::min(load, cap);
                        const double chw = met / (kWaterRhoCp * 6.67) * kGpmPerM3s;
                        const double cnd = (met + power) / (kWaterRhoCp * 5.56) * kGpmPerM3s;
                        elec[kUsePumps] += 22.0 * chw + 19.0 * cnd;
                        o.compressor[month] += power;
                        break;
                    }
                    case CoolingPlant::WaterSourceDx: {
                        const double load = c.sensible + c.latent;
                        const double plr = std::min(load / o.coolingCapacity, 1.0);
                        power = load / cop / DxPartLoadFactor(plr);
                        o.compressor[month] += power;
                        break;
                    }
                    case CoolingPlant::Evaporative:
                        power = o.coolingCapacity / cop * c.plr / DxPartLoadFactor(c.plr);
                        o.compressor[month] += power;
                        break;
                    case CoolingPlant::None:
                        break;
                }
                o.coilSensible[month] += c.sensible;
                o.coilLatent[month] += c.latent;
                elec[kUseCooling] += power;
                plrC = c.plr;
                if (qc > c.net * (1 + 1e-6)) {
                    ++o.unmetCoolingHours;
                    o.unmetCooling += qc - std::max(c.net, 0.0);
                }
            } else if (qc > 0) {
                ++o.unmetCoolingHours;
                o.unmetCooling += qc;
            }
            // The zone's latent gains of the hour: people, and the air
            // brought in at the outdoor humidity against the room's.
            o.latentGains[month] += (vapour + airIn * (wOut - newHumidity)) * kLatentHeat;
            // Air above saturation at the room's temperature condenses on its surfaces.
            humidity = std::clamp(newHumidity, 1e-5, saturated);
            const double rh = RhOfHumidityRatio(tz, humidity, pressure);
            o.humidityRatioSum[month] += humidity;
            o.rhSum[month] += rh;
            ++o.hours[month];
            o.maxRh = std::max(o.maxRh, rh);
            if (rh > 60.0) ++o.hoursAboveRh60;
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
