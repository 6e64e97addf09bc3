// A generated multi-zone office: every zone closes its energy balance, the
// component tables add up to the loads, and zones differ as their exposure says.
#include <gtest/gtest.h>

#include <cmath>

#include "climate_records.h"
#include "engine/generated_building.h"
#include "engine/simulation.h"
#include "engine/synthetic_weather.h"

namespace solvane::engine {
namespace {

TEST(MultiZone, GeneratedOfficeBalancesAndAddsUp) {
    const auto records = testing::ReadClimateRecords(std::string(SOLVANE_SOURCE_DIR) +
                                                     "/tests/engine/climate_records.txt");
    const testing::ClimateRecord& cold = records.at(0);
    const WeatherYear w = SynthesizeWeather(cold.climate, cold.site, 11);
    const Building b = GenerateOfficeBuilding(30, 12);  // three floors of ten
    RunOptions opt;
    opt.stepsPerHour = 1;
    const RunResults r = Simulate(b, w, opt);
    ASSERT_EQ(r.zones.size(), 30u);
    for (std::size_t z = 0; z < r.zones.size(); ++z) {
        const ZoneResults& zr = r.zones[z];
        EXPECT_LT(zr.BalanceError(), 1e-3) << z;
        EXPECT_TRUE(std::isfinite(zr.heatingEnergy) && std::isfinite(zr.coolingEnergy));
        double h = 0, c = 0;
        for (int k = 0; k < kComponentCount; ++k)
            h += zr.heatingByComponent[k], c += zr.coolingByComponent[k];
        EXPECT_NEAR(h, zr.heatingEnergy, 1e-6 * (1 + zr.heatingEnergy)) << z;
        EXPECT_NEAR(c, zr.coolingEnergy, 1e-6 * (1 + zr.coolingEnergy)) << z;
        // A cold climate office heats in winter and cools in summer.
        EXPECT_GT(zr.monthlyHeating[0], zr.monthlyHeating[6]) << z;
        EXPECT_GT(zr.monthlyCooling[6], zr.monthlyCooling[0]) << z;
        // The thermostat holds the occupied hours between its set-points.
        EXPECT_GE(zr.minTemperature, 15.6 - 0.01) << z;
        EXPECT_LE(zr.maxTemperature, 29.4 + 0.01) << z;
    }
    // Top-floor zones (under the roof) need more heat per floor area than the
    // middle floor's zone at the same place in the row.
    for (int pos = 1; pos < 9; ++pos) {
        const double middle = r.zones[10 + pos].heatingEnergy / b.zones[10 + pos].floorArea;
        const double top = r.zones[20 + pos].heatingEnergy / b.zones[20 + pos].floorArea;
        EXPECT_GT(top, middle) << pos;
    }
}

}  // namespace
}  // namespace solvane::engine
