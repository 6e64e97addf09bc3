#include "engine/synthetic_weather.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "bestest_building.h"
#include "climate_records.h"
#include "engine/epw_reader.h"
#include "engine/simulation.h"

namespace solvane::engine {
namespace {

const std::string kSource = SOLVANE_SOURCE_DIR;

using Record = testing::ClimateRecord;

std::vector<Record> ReadRecords() {
    return testing::ReadClimateRecords(kSource + "/tests/engine/climate_records.txt");
}

TEST(SyntheticWeather, TheSameSeedGivesTheSameYear) {
    const Record r = ReadRecords().at(0);
    const WeatherYear a = SynthesizeWeather(r.climate, r.site, SeedFromText(".83766422"));
    const WeatherYear b = SynthesizeWeather(r.climate, r.site, SeedFromText(".83766422"));
    const WeatherYear c = SynthesizeWeather(r.climate, r.site, SeedFromText(".12345678"));
    ASSERT_EQ(a.hours.size(), 8760u);
    int differ = 0;
    for (int h = 0; h < 8760; ++h) {
        ASSERT_EQ(a.hours[h].dryBulb, b.hours[h].dryBulb);
        ASSERT_EQ(a.hours[h].globalHorizontal, b.hours[h].globalHorizontal);
        differ += a.hours[h].dryBulb != c.hours[h].dryBulb;
    }
    EXPECT_GT(differ, 8000);
}

TEST(SyntheticWeather, HoursArePhysical) {
    for (const Record& r : ReadRecords()) {
        const WeatherYear w = SynthesizeWeather(r.climate, r.site, 7);
        for (const WeatherHour& h : w.hours) {
            ASSERT_LE(h.dewPoint, h.dryBulb + 1e-4) << r.name;
            ASSERT_GE(h.globalHorizontal, 0.0f);
            ASSERT_GE(h.diffuseHorizontal, 0.0f);
            ASSERT_LE(h.diffuseHorizontal, h.globalHorizontal + 1e-3f);
            ASSERT_LT(h.directNormal, 1200.0f) << r.name;
        }
    }
}

// Over 20 seeds for the three climates every month keeps the record's mean
// dry bulb within 0.3 F, the standard deviations of the daily mean, daily
// maximum and dew point within 10 percent, and the daily solar within 3
// percent.
TEST(SyntheticWeather, MonthlyStatisticsHoldForTwentySeeds) {
    for (const Record& r : ReadRecords()) {
        for (std::uint64_t seed = 1; seed <= 20; ++seed) {
            const MonthlyClimate g = ClimateOf(SynthesizeWeather(r.climate, r.site, seed));
            for (int m = 0; m < 12; ++m) {
                const MonthlyClimate& c = r.climate;
                EXPECT_NEAR(g.dryBulbMean[m], c.dryBulbMean[m], 0.3) << r.name << " month " << m;
                EXPECT_NEAR(g.dryBulbMeanSd[m], c.dryBulbMeanSd[m], 0.1 * c.dryBulbMeanSd[m])
                    << r.name << " month " << m;
                EXPECT_NEAR(g.dryBulbMaxSd[m], c.dryBulbMaxSd[m], 0.1 * c.dryBulbMaxSd[m])
                    << r.name << " month " << m;
                EXPECT_NEAR(g.dryBulbMax[m], c.dryBulbMax[m], 0.3) << r.name << " month " << m;
                EXPECT_NEAR(g.dewPointSd[m], c.dewPointSd[m], 0.1 * c.dewPointSd[m])
                    << r.name << " month " << m;
                EXPECT_NEAR(g.solar[m], c.solar[m], 0.03 * c.solar[m]) << r.name << " month " << m;
            }
        }
    }
}

// Case 600 on a synthetic twin of the Denver year (made from that year's own
// monthly statistics) needs within 5 percent the heating and the cooling it
// needs on the recorded year.
TEST(SyntheticWeather, Case600LoadsMatchTheRecordedYear) {
    const WeatherYear epw = ReadEpwFile(kSource + "/tests/fixtures/weather/725650TYCST.epw");
    const Building b = testing::BestestBuilding(false, false);
    RunOptions opt;
    opt.keepHourly = false;
    const ZoneResults rec = Simulate(b, epw, opt).zones[0];
    const MonthlyClimate twin = ClimateOf(epw);
    double heat = 0, cool = 0;
    constexpr int kSeeds = 5;
    for (int seed = 1; seed <= kSeeds; ++seed) {
        const ZoneResults syn = Simulate(b, SynthesizeWeather(twin, epw.site, seed), opt).zones[0];
        heat += syn.heatingEnergy / kSeeds;
        cool += syn.coolingEnergy / kSeeds;
    }
    EXPECT_NEAR(heat, rec.heatingEnergy, 0.05 * rec.heatingEnergy);
    EXPECT_NEAR(cool, rec.coolingEnergy, 0.05 * rec.coolingEnergy);
}

}  // namespace
}  // namespace solvane::engine

namespace solvane::engine {
namespace {

TEST(GroundTemperatures, FollowTheAirDampedAndLate) {
    // Against the Denver year's own ground record at 0.5 m: the same mean,
    // coldest in January to March, warmest in July to September.
    const WeatherYear epw = ReadEpwFile(kSource + "/tests/fixtures/weather/725650TYCST.epw");
    const std::array<double, 12> g = GroundTemperatures(epw, 0.5);
    double mean = 0, recMean = 0;
    for (int m = 0; m < 12; ++m) mean += g[m] / 12, recMean += epw.groundTemperatures[m] / 12;
    EXPECT_NEAR(mean, recMean, 1.5);
    const int coldest = static_cast<int>(std::min_element(g.begin(), g.end()) - g.begin());
    const int warmest = static_cast<int>(std::max_element(g.begin(), g.end()) - g.begin());
    EXPECT_LE(coldest, 2);
    EXPECT_GE(warmest, 6);
    EXPECT_LE(warmest, 8);
    // Damped: the swing is smaller than the air's monthly swing.
    const MonthlyClimate c = ClimateOf(epw);
    const double airSwing = (*std::max_element(c.dryBulbMean.begin(), c.dryBulbMean.end()) -
                             *std::min_element(c.dryBulbMean.begin(), c.dryBulbMean.end())) /
                            1.8;
    EXPECT_LT(*std::max_element(g.begin(), g.end()) - *std::min_element(g.begin(), g.end()),
              airSwing);
}

}  // namespace
}  // namespace solvane::engine
