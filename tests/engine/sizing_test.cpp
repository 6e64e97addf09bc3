// Design-day sizing: the heating day against the steady conductance of the
// envelope, the cooling day against its design temperatures, and the plant
// sized on them.
#include <gtest/gtest.h>

#include "bestest_building.h"
#include "bestest_cases.h"
#include "engine/hvac_systems.h"
#include "engine/sizing.h"

namespace solvane::engine::testing {
namespace {

TEST(Sizing, DesignTemperaturesOfTheProjectLine) {
    DesignConditions c;
    ASSERT_TRUE(DesignConditionsOf("91.5", "59.6", "-1.0", c));
    EXPECT_NEAR(c.summerDryBulb, 33.06, 0.01);
    EXPECT_NEAR(c.summerWetBulb, 15.33, 0.01);
    EXPECT_NEAR(c.winterDryBulb, -18.33, 0.01);
    EXPECT_FALSE(DesignConditionsOf("91.5", " ", "-1.0", c));
}

TEST(Sizing, HeatingDayIsTheSteadyLossOfTheEnvelope) {
    // Case 600 (20 C heating) at a -20 C design: no sun, no gains, a sky
    // near the air's temperature: the peak is the conductance times 40 K,
    // within what the films and the sky leave between them.
    const Building b = BestestBuilding(false, false);
    DesignConditions c;
    c.winterDryBulb = -20.0;
    const DesignLoads d = DesignDayLoads(b, DenverWeather(), c, RunOptions{});
    const double ua = SteadyConductance(b, 0, DenverWeather());
    ASSERT_EQ(d.heating.size(), 1u);
    EXPECT_NEAR(d.heating[0], ua * 40.0, 0.1 * ua * 40.0);
    // The day's weather: design temperature all day, no sun.
    const WeatherYear w = HeatingDesignWeather(DenverWeather(), c);
    EXPECT_FLOAT_EQ(w.hours[20 * 24 + 13].dryBulb, -20.0f);
    EXPECT_EQ(w.hours[20 * 24 + 13].globalHorizontal, 0.0f);
}

TEST(Sizing, CoolingDayFollowsItsDesignTemperatures) {
    const Building b = BestestBuilding(false, false);
    DesignConditions mild, hot;
    mild.summerDryBulb = 30, mild.summerWetBulb = 18;
    hot.summerDryBulb = 38, hot.summerWetBulb = 18;
    int day = -1;
    double range = 0;
    const WeatherYear w = CoolingDesignWeather(DenverWeather(), hot, &day, &range);
    ASSERT_GE(day, 181);
    ASSERT_LT(day, 212);  // a July day
    double peak = -100, low = 100;
    for (int h = 0; h < 24; ++h)
        peak = std::max<double>(peak, w.hours[day * 24 + h].dryBulb),
        low = std::min<double>(low, w.hours[day * 24 + h].dryBulb);
    EXPECT_NEAR(peak, 38.0, 1e-4);
    EXPECT_NEAR(peak - low, range, 1e-3);
    EXPECT_GT(range, 5.0);  // Denver's July
    const DesignLoads m = DesignDayLoads(b, DenverWeather(), mild, RunOptions{});
    const DesignLoads h = DesignDayLoads(b, DenverWeather(), hot, RunOptions{});
    EXPECT_GT(m.cooling[0], 1000.0);
    // 8 K hotter through the envelope's conductance (and the hotter faces).
    const double ua = SteadyConductance(b, 0, DenverWeather());
    EXPECT_GT(h.cooling[0] - m.cooling[0], 0.5 * ua * 8.0);
    EXPECT_LT(h.cooling[0] - m.cooling[0], 2.0 * ua * 8.0);
}

TEST(Sizing, PlantSizedOnTheDesignDays) {
    const Building b = BestestBuilding(false, false);
    RunOptions opt;
    const RunResults run = Simulate(b, DenverWeather(), opt);
    DesignLoads d;
    d.cooling = {4000.0};
    d.heating = {3000.0};
    d.conditions.summerDryBulb = 35.0;  // the DX rating's outdoor temperature
    const ZoneSystem s = SystemOfType(11, 1, 14.0, 0.8, 1.0);
    const SystemsResults r = SimulateSystems(b, run, DenverWeather(), opt, {s}, &d);
    EXPECT_TRUE(r.sizedOnDesignDays);
    EXPECT_NEAR(r.zones[0].heatingCapacity, 1.25 * 3000.0, 1e-6);
    EXPECT_NEAR(r.zones[0].coolingCapacity, 1.15 * 4000.0 / DxCapacityRatio(19.44, 35.0) / 0.8,
                1e-6);
    // Without them: the year's peak hour.
    const SystemsResults y = SimulateSystems(b, run, DenverWeather(), opt, {s});
    EXPECT_NEAR(y.zones[0].heatingCapacity, 1.25 * run.zones[0].peakHeating, 1e-6);
}

}  // namespace
}  // namespace solvane::engine::testing
