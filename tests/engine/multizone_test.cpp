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

namespace solvane::engine {
namespace {

// A south window with a deep right fin (the east side, seen from outside)
// gets less sun in the morning than the same window with the fin on the
// left.
TEST(WindowShading, FinsAndOverhangFollowTheSun) {
    const auto records = testing::ReadClimateRecords(std::string(SOLVANE_SOURCE_DIR) +
                                                     "/tests/engine/climate_records.txt");
    const WeatherYear w = SynthesizeWeather(records.at(0).climate, records.at(0).site, 5);
    auto cell = [](WindowShading sh) {
        Building b = GenerateOfficeBuilding(1, 6);
        for (Surface& s : b.zones[0].surfaces) {
            s.windows.clear();
            if (s.kind == SurfaceClass::Wall && std::abs(s.azimuth - 195) < 1) {
                Window win;
                win.type = 0;
                win.area = 6;
                win.shading = sh;
                s.windows.push_back(win);
                break;
            }
        }
        b.zones[0].conditioned = false;
        return b;
    };
    RunOptions opt;
    opt.stepsPerHour = 1;
    auto morningGain = [&](const Building& b) {
        const RunResults r = Simulate(b, w, opt);
        double sum = 0;  // 9 and 10 a.m. air temperatures over the year
        for (int d = 0; d < 365; ++d) sum += r.zones[0].airTemperature[d * 24 + 9];
        return sum;
    };
    WindowShading right, left;
    right.rightFinProjection = 2;
    left.leftFinProjection = 2;
    EXPECT_LT(morningGain(cell(right)), morningGain(cell(left)));
    // An overhang cools the zone in every month; one that lets half the sun
    // through cools it less than an opaque one.
    WindowShading over, half;
    over.overhangProjection = 1;
    half.overhangProjection = 1;
    half.overhangTransmittance = 0.5;
    const RunResults open = Simulate(cell({}), w, opt), shaded = Simulate(cell(over), w, opt),
                     partly = Simulate(cell(half), w, opt);
    for (int m = 0; m < 12; ++m) {
        const double full =
            open.zones[0].monthlyMeanTemperature[m] - shaded.zones[0].monthlyMeanTemperature[m];
        const double some =
            open.zones[0].monthlyMeanTemperature[m] - partly.zones[0].monthlyMeanTemperature[m];
        EXPECT_GT(some, 0.0) << m;
        EXPECT_GT(full, some) << m;
    }
}

}  // namespace
}  // namespace solvane::engine
