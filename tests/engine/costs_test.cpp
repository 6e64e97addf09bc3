// Utility bills and life-cycle cost, against figures worked by hand.
#include "engine/costs.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/report_costs.h"

namespace solvane::engine {
namespace {

constexpr int kJuly = 6;

EconomicInputs Prices() {
    EconomicInputs in;
    in.electricPrice = 0.10;  // $/kWh
    in.gasPrice = 0.73;       // $/therm
    in.waterPrice = 5.0;      // $/1000 gal
    in.demandInForce = true;
    in.demandSteps = {{50, 5.0}, {100, 8.0}, {20, 12.0}};
    return in;
}

// July: 42,000 kWh (lights and cooling), a 180 kW peak, 100 therms of
// fuel and 10,000 gal of hot water.
SystemsResults July() {
    SystemsResults s;
    s.electric[kUseLights][kJuly] = 30.0e6;
    s.electric[kUseCooling][kJuly] = 12.0e6;
    s.fuel[kUseHeating][kJuly] = 1.0e7 / 3.412141 * 0.6;  // 60 therms in Wh
    s.fuel[kUseHotWater][kJuly] = 1.0e7 / 3.412141 * 0.4;
    s.peakDemand[kJuly] = 180e3;
    s.hotWaterVolume[kJuly] = 37.85411784;
    return s;
}

TEST(Costs, OneMonthBilledByHandWithDemandBlocks) {
    const CostResults c = ComputeCosts(Prices(), July(), {}, kJuly, kJuly, false);
    const MonthlyBill& b = c.month[kJuly];
    EXPECT_NEAR(b.kwh, 42000, 1e-6);
    EXPECT_NEAR(b.electricEnergy, 4200, 1e-6);
    // 50 kW at $5, the next 100 at $8, the last 30 at the last step's $12
    // (the last step is open above, whatever its width).
    EXPECT_NEAR(b.electricDemand, 250 + 800 + 360, 1e-6);
    EXPECT_NEAR(b.therms, 100, 1e-3);
    EXPECT_NEAR(b.gas, 73, 1e-3);
    EXPECT_NEAR(b.kgal, 10, 1e-9);
    EXPECT_NEAR(b.water, 50, 1e-6);
    EXPECT_NEAR(b.Total(), 4200 + 1410 + 73 + 50, 1e-3);
    // A month outside the run is not billed; the period is the run's months.
    EXPECT_EQ(c.month[kJuly + 1].Total(), 0);
    EXPECT_NEAR(c.Period().Total(), b.Total(), 1e-9);
    EXPECT_FALSE(c.lifeCycle.computed);  // part of a year

    // Without a schedule in force only the energy is billed.
    EconomicInputs off = Prices();
    off.demandInForce = false;
    EXPECT_EQ(ComputeCosts(off, July(), {}, kJuly, kJuly, false).month[kJuly].electricDemand, 0);
}

TEST(Costs, DemandBlocksAtTheirEdges) {
    const std::vector<DemandStep> steps = Prices().demandSteps;
    EXPECT_NEAR(DemandCharge(30, steps), 150, 1e-9);         // inside the first block
    EXPECT_NEAR(DemandCharge(150, steps), 250 + 800, 1e-9);  // exactly two blocks
    EXPECT_NEAR(DemandCharge(0, steps), 0, 1e-9);
    EXPECT_NEAR(DemandCharge(75, {{0, 9.0}}), 675, 1e-9);  // one step: a flat rate
    EXPECT_NEAR(DemandCharge(75, {}), 0, 1e-9);
}

TEST(Costs, PresentWorthFactorsAgainstHandWorkedFigures) {
    // d = 3 %, no escalation, 25 years: the annuity factor 17.413; a single
    // amount in year 20: 0.5537 (NIST Handbook 135 tables).
    EXPECT_NEAR(UniformPresentWorth(0.03, 0, 25), 17.413, 5e-4);
    EXPECT_NEAR(SinglePresentWorth(0.03, 0, 20), 0.5537, 5e-5);
    // Escalating 1 % a year: k = 1.01 / 1.03, k (1 - k^25) / (1 - k) = 19.569.
    EXPECT_NEAR(UniformPresentWorth(0.03, 0.01, 25), 19.569, 5e-4);
    // Escalation equal to the discount rate: each year worth its first cost.
    EXPECT_NEAR(UniformPresentWorth(0.04, 0.04, 12), 12, 1e-9);
    EXPECT_EQ(UniformPresentWorth(0.03, 0, 0), 0);
}

TEST(Costs, LifeCycleOverTheEconomicAndHvacLives) {
    EconomicInputs in = Prices();
    in.demandInForce = false;
    in.economicLife = 25, in.hvacLife = 20, in.discountRate = 0.03;
    in.electricEscalation = 0.01;
    in.constructionCostPerFt2 = 100;
    SystemsResults s = July();
    // One zone of 1000 sq.ft with a 5-ton plant at $2000 and $100 a ton.
    s.zones.resize(1);
    s.zones[0].coolingCapacity = 5 * 3516.8528;
    const std::vector<ZoneCostRates> zones = {{"1", 1000, 2.0, 2000, 100}};
    const CostResults c = ComputeCosts(in, s, zones, 0, 11, true);
    const LifeCycleCost& l = c.lifeCycle;
    ASSERT_TRUE(l.computed);
    EXPECT_NEAR(c.zones[0].tons, 5, 1e-9);
    EXPECT_NEAR(l.hvacFirst, 10000, 1e-6);
    EXPECT_NEAR(l.construction, 100000, 1e-6);
    EXPECT_NEAR(l.lighting, 2000, 1e-6);
    // Replaced once, in year 20: 10000 / 1.03^20; 15 of its 20 years are
    // left at year 25: 7500 / 1.03^25 back.
    EXPECT_EQ(l.replacementCount, 1);
    EXPECT_NEAR(l.hvacReplacements, 5536.76, 0.01);
    EXPECT_NEAR(l.hvacResidual, 3582.04, 0.01);
    EXPECT_NEAR(l.maintenance, 500 * 17.41315, 0.01);
    // The year's electricity (4200 $) escalating 1 % a year.
    EXPECT_NEAR(l.electric, 4200 * 19.56892, 0.05);
    EXPECT_NEAR(l.Total(),
                100000 + 2000 + 10000 + 5536.76 - 3582.04 + 8706.57 + 4200 * 19.56892 +
                    73 * 17.41315 + 50 * l.waterFactor,
                0.2);

    // A plant that outlives the period is not replaced; its unused years
    // are credited.
    in.hvacLife = 30;
    const LifeCycleCost l30 = ComputeCosts(in, s, zones, 0, 11, true).lifeCycle;
    EXPECT_EQ(l30.replacementCount, 0);
    EXPECT_NEAR(l30.hvacResidual, 10000 * 5.0 / 30 / std::pow(1.03, 25), 0.01);

    // Figures that give no present worth leave the life-cycle cost out.
    in.discountRate = -1;
    EXPECT_FALSE(ComputeCosts(in, s, zones, 0, 11, true).lifeCycle.computed);
    in.discountRate = 0.03, in.economicLife = 0;
    EXPECT_FALSE(ComputeCosts(in, s, zones, 0, 11, true).lifeCycle.computed);
}

TEST(Costs, ReportColumnsTheReadersTake) {
    const CostResults c = ComputeCosts(Prices(), July(), {}, kJuly, kJuly, false);
    LineWriter row;
    row.Text("JUL");
    CostColumns(row, c.month[kJuly], false);
    row.EndLine();
    const std::string l = row.Str();
    EXPECT_EQ(l.substr(79, 8), "      73");
    EXPECT_EQ(l.substr(104, 9), "     5610");  // energy and demand
    EXPECT_EQ(l.substr(113, 9), "     5733");
    LineWriter total;
    CostTotalsLine(total, c.Period());
    EXPECT_EQ(total.Str().substr(0, 4), "COST");
    EXPECT_EQ(total.Str().substr(113, 9), "     5733");
}

}  // namespace
}  // namespace solvane::engine
