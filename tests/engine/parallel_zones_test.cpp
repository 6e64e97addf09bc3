// Zones stepped on several threads: the figures are the same to the last bit
// as on one thread, and the work list hands out every zone exactly once.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <atomic>

#include <cstdlib>
#include <stdexcept>
#include <vector>

#include "climate_records.h"
#include "engine/generated_building.h"
#include "engine/parallel_for.h"
#include "engine/simulation.h"
#include "engine/synthetic_weather.h"

namespace solvane::engine {
namespace {

// Every figure of a zone, compared exactly (floats and doubles by value:
// the same operations in the same order give the same bits).
void ExpectSameZone(const ZoneResults& a, const ZoneResults& b, int threads) {
    SCOPED_TRACE(a.name + " on " + std::to_string(threads) + " threads");
    EXPECT_EQ(a.airTemperature, b.airTemperature);
    EXPECT_EQ(a.heating, b.heating);
    EXPECT_EQ(a.cooling, b.cooling);
    EXPECT_EQ(a.lights, b.lights);
    EXPECT_EQ(a.equipment, b.equipment);
    EXPECT_EQ(a.heatingEnergy, b.heatingEnergy);
    EXPECT_EQ(a.coolingEnergy, b.coolingEnergy);
    EXPECT_EQ(a.monthlyHeating, b.monthlyHeating);
    EXPECT_EQ(a.monthlyCooling, b.monthlyCooling);
    EXPECT_EQ(a.monthlySolarGain, b.monthlySolarGain);
    EXPECT_EQ(a.peakHeating, b.peakHeating);
    EXPECT_EQ(a.peakCooling, b.peakCooling);
    EXPECT_EQ(a.peakHeatingHour, b.peakHeatingHour);
    EXPECT_EQ(a.peakCoolingHour, b.peakCoolingHour);
    EXPECT_EQ(a.heatingByComponent, b.heatingByComponent);
    EXPECT_EQ(a.coolingByComponent, b.coolingByComponent);
    EXPECT_EQ(a.peakHeatingComponents, b.peakHeatingComponents);
    EXPECT_EQ(a.peakCoolingComponents, b.peakCoolingComponents);
    EXPECT_EQ(a.maxTemperature, b.maxTemperature);
    EXPECT_EQ(a.minTemperature, b.minTemperature);
    EXPECT_EQ(a.meanTemperature, b.meanTemperature);
    EXPECT_EQ(a.monthlyMeanTemperature, b.monthlyMeanTemperature);
    EXPECT_EQ(a.monthlyHoursWithin, b.monthlyHoursWithin);
    EXPECT_EQ(a.balanceIn, b.balanceIn);
    EXPECT_EQ(a.balanceResidual, b.balanceResidual);
}

TEST(ParallelZones, FiguresDoNotDependOnTheThreadCount) {
    const auto records = testing::ReadClimateRecords(std::string(SOLVANE_SOURCE_DIR) +
                                                     "/tests/engine/climate_records.txt");
    const WeatherYear w = SynthesizeWeather(records.at(0).climate, records.at(0).site, 5);
    const Building b = GenerateOfficeBuilding(13, 10);  // zones not a multiple of the threads
    RunOptions opt;
    opt.beginDay = 20;  // a period across a skipped month, warm-up included
    opt.endDay = 100;
    opt.skipMonth[1] = true;
    opt.threads = 1;
    const RunResults one = Simulate(b, w, opt);
    ASSERT_EQ(one.zones.size(), 13u);
    for (const int threads : {2, 3, 16}) {
        opt.threads = threads;
        const RunResults many = Simulate(b, w, opt);
        ASSERT_EQ(many.zones.size(), one.zones.size());
        EXPECT_EQ(many.hoursSimulated, one.hoursSimulated);
        for (std::size_t z = 0; z < one.zones.size(); ++z)
            ExpectSameZone(one.zones[z], many.zones[z], threads);
    }
}

TEST(ParallelZones, EveryIndexIsDoneOnceAndAFailureReachesTheCaller) {
    for (const int threads : {1, 2, 7}) {
        std::vector<std::atomic<int>> done(50);
        ParallelFor(50, threads, [&](int i) { ++done[i]; });
        for (const auto& d : done) EXPECT_EQ(d.load(), 1) << threads;
    }
    ParallelFor(0, 4, [](int) { FAIL() << "no index to do"; });
    EXPECT_THROW(ParallelFor(20, 3,
                             [](int i) {
                                 if (i == 11) throw std::runtime_error("zone 11 failed");
                             }),
                 std::runtime_error);
    EXPECT_EQ(ThreadCount(3), 3);
    EXPECT_GE(ThreadCount(0), 1);
}

TEST(ParallelZones, TheEngineRefusesAnArgumentItDoesNotKnow) {
    for (const char* args : {" --threads 0", " --threads x", " --threads", " --fast"}) {
        const std::string cmd = "\"" SOLV2020_PATH "\"" + std::string(args) + " 2>/dev/null";
        const int status = std::system(cmd.c_str());
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 2) << args;
    }
}

}  // namespace
}  // namespace solvane::engine
