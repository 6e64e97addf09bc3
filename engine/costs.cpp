#include "engine/costs.h"

#include <algorithm>
#include <cmath>

#include "core/numeric_helpers.h"
#include "core/text_cuts.h"
#include "economics/economics_form.h"

namespace solvane::engine {
namespace {

constexpr double kWhPerTherm = 29307.107;   // 100,000 Btu
constexpr double kWPerTon = 3516.8528;      // 12,000 Btu/h
constexpr double kM3PerKgal = 3.785411784;  // 1000 US gal
constexpr double kFt2PerM2 = 10.76391;

}  // namespace

EconomicInputs EconomicInputsOf(const ProjectModel& model) {
    const EconomicsState& e = model.economics;
    auto v = [&](int i) { return NumVal(e.EconomicsData[i]); };
    EconomicInputs in;
    in.economicLife = v(0), in.hvacLife = v(1), in.solarLife = v(2);
    in.discountRate = v(3), in.costEscalation = v(4);
    in.electricPrice = v(5), in.electricEscalation = v(6);
    in.gasPrice = v(7), in.gasEscalation = v(8);
    in.waterPrice = v(9), in.waterEscalation = v(10);
    in.demandInForce = DemandFlagMeansYes(e.DemandCharge) ||
                       DemandFlagMeansYes(cuts::TrimLeft(cuts::TrimRight(e.EconomicsData[11])));
    for (int i = 1; i <= std::min<int>(e.NumDemandRates, 3); ++i)
        in.demandSteps.push_back({NumVal(e.DemandRateLimit[i]), NumVal(e.DemandRateCost[i])});
    in.constructionCostPerFt2 = NumVal(model.ProjectData[kConCost]);
    return in;
}

std::vector<ZoneCostRates> ZoneCostRatesOf(const ProjectModel& m, const Building& b) {
    std::vector<ZoneCostRates> out(b.zones.size());
    for (std::size_t i = 0; i < b.zones.size(); ++i) {
        for (int z = 1; z <= m.zones.NumZones; ++z) {
            if (m.zones.ZoneNumber[z] != b.zones[i].number) continue;
            const auto& f = m.zones.ZoneData[z];
            out[i] = {b.zones[i].number, b.zones[i].floorArea * kFt2PerM2, NumVal(f[12]),
                      NumVal(f[29]), NumVal(f[30])};
            break;
        }
    }
    return out;
}

double DemandCharge(double peakKw, const std::vector<DemandStep>& steps) {
    double charge = 0, left = std::max(peakKw, 0.0);
    for (std::size_t i = 0; i < steps.size() && left > 0; ++i) {
        const bool last = i + 1 == steps.size();
        const double kw = last ? left : std::min(left, std::max(steps[i].kw, 0.0));
        charge += kw * steps[i].costPerKw;
        left -= kw;
    }
    return charge;
}

double SinglePresentWorth(double discountRate, double escalation, double year) {
    return std::pow((1 + escalation) / (1 + discountRate), year);
}

double UniformPresentWorth(double discountRate, double escalation, int years) {
    if (years <= 0) return 0;
    const double k = (1 + escalation) / (1 + discountRate);
    if (std::abs(1 - k) < 1e-12) return years;
    return k * (1 - std::pow(k, years)) / (1 - k);
}

MonthlyBill CostResults::Period() const {
    MonthlyBill s;
    for (int m = firstMonth; m <= lastMonth; ++m) {
        const MonthlyBill& b = month[m];
        s.kwh += b.kwh, s.therms += b.therms, s.kgal += b.kgal;
        s.peakKw = std::max(s.peakKw, b.peakKw);
        s.electricEnergy += b.electricEnergy, s.electricDemand += b.electricDemand;
        s.gas += b.gas, s.water += b.water;
    }
    return s;
}

CostResults ComputeCosts(const EconomicInputs& in, const SystemsResults& sys,
                         const std::vector<ZoneCostRates>& zones, int firstMonth, int lastMonth,
                         bool wholeYear) {
    CostResults c;
    c.inputs = in;
    c.firstMonth = firstMonth, c.lastMonth = lastMonth;
    for (int m = firstMonth; m <= lastMonth; ++m) {
        MonthlyBill& b = c.month[m];
        double elec = 0, fuel = 0;
        for (int u = 0; u < kEndUseCount; ++u) elec += sys.electric[u][m], fuel += sys.fuel[u][m];
        b.kwh = elec / 1000.0;
        b.peakKw = sys.peakDemand[m] / 1000.0;
        b.therms = fuel / kWhPerTherm;
        b.kgal = sys.hotWaterVolume[m] / kM3PerKgal;
        b.electricEnergy = b.kwh * in.electricPrice;
        b.electricDemand = in.demandInForce ? DemandCharge(b.peakKw, in.demandSteps) : 0.0;
        b.gas = b.therms * in.gasPrice;
        b.water = b.kgal * in.waterPrice;
    }

    // The HVAC costs are per ton of the zone's sized plant: its cooling
    // capacity, or its heating capacity where it has no cooling.
    for (std::size_t z = 0; z < zones.size(); ++z) {
        ZoneCost zc;
        zc.number = zones[z].number;
        if (z < sys.zones.size()) {
            const ZoneSystemResults& o = sys.zones[z];
            zc.tons = (o.coolingCapacity > 0 ? o.coolingCapacity : o.heatingCapacity) / kWPerTon;
        }
        zc.first = zc.tons * zones[z].firstPerTon;
        zc.maintenance = zc.tons * zones[z].maintenancePerTon;
        zc.lighting = zones[z].floorAreaFt2 * zones[z].lightingPerFt2;
        c.hvacFirst += zc.first, c.hvacMaintenance += zc.maintenance, c.lighting += zc.lighting;
        c.construction += zones[z].floorAreaFt2 * in.constructionCostPerFt2;
        c.zones.push_back(zc);
    }

    LifeCycleCost& l = c.lifeCycle;
    l.years = static_cast<int>(std::lround(in.economicLife));
    // A discount rate of -100 % or below has no present worth.
    if (!wholeYear || l.years <= 0 || in.discountRate <= -1) return c;
    l.computed = true;
    const double d = in.discountRate, n = l.years;
    l.construction = c.construction, l.lighting = c.lighting, l.hvacFirst = c.hvacFirst;
    // A plant life under a year is taken as no life given: no replacements.
    if (in.hvacLife >= 1) {
        double t = in.hvacLife;
        for (; t < n - 1e-9; t += in.hvacLife, ++l.replacementCount)
            l.hvacReplacements += c.hvacFirst * SinglePresentWorth(d, in.costEscalation, t);
        // The last plant, installed at t - life, has t - n years left at n.
        const double left = (t - n) / in.hvacLife;
        l.hvacResidual = c.hvacFirst * left * SinglePresentWorth(d, in.costEscalation, n);
    }
    const MonthlyBill year = c.Period();
    l.maintenanceFactor = UniformPresentWorth(d, in.costEscalation, l.years);
    l.electricFactor = UniformPresentWorth(d, in.electricEscalation, l.years);
    l.gasFactor = UniformPresentWorth(d, in.gasEscalation, l.years);
    l.waterFactor = UniformPresentWorth(d, in.waterEscalation, l.years);
    l.maintenance = c.hvacMaintenance * l.maintenanceFactor;
    l.electric = year.Electric() * l.electricFactor;
    l.gas = year.gas * l.gasFactor;
    l.water = year.water * l.waterFactor;
    return c;
}

}  // namespace solvane::engine
