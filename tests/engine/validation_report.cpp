// Prints the ASHRAE 140 figures of the engine beside the reference range, as
// the table of docs/validation.md. Run by hand: engine_validation.
#include <cstdio>

#include "bestest_building.h"
#include "bestest_cases.h"
#include "climate_records.h"
#include "engine/epw_reader.h"
#include "engine/synthetic_weather.h"

#include <algorithm>
#include <cmath>

using namespace solvane::engine;

int main() {
    const std::string src = SOLVANE_SOURCE_DIR;
    const WeatherYear w = ReadEpwFile(src + "/tests/fixtures/weather/725650TYCST.epw");
    const auto ranges = testing::ReadReferenceRanges(src + "/tests/engine/bestest_ranges.csv");
    const auto f = testing::RunBestestCases(w);
    const auto p = testing::RunBestestCases(w, 4, testing::ProjectCaseBuilding);
    auto inside = [](double v, const testing::ReferenceRange& r) {
        return v >= r.min - 1e-9 && v <= r.max + 1e-9;
    };
    std::printf(
        "| Case | Quantity | Project file | Layered | Reference min | Reference max | Inside |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
    for (const auto& r : ranges) {
        const double v = p.at(r.caseName + "/" + r.quantity);
        const double d = f.at(r.caseName + "/" + r.quantity);
        std::printf("| %s | %s | %.3f | %.3f | %.3f | %.3f | %s |\n", r.caseName.c_str(),
                    r.quantity.c_str(), v, d, r.min, r.max,
                    inside(v, r) && inside(d, r)
                        ? "both"
                        : (inside(v, r) ? "project only" : (inside(d, r) ? "layered only" : "NO")));
    }
    for (const char* c : {"600", "900", "600FF", "900FF"})
        std::printf("balance %s: project %.2e layered %.2e\n", c,
                    p.at(std::string(c) + "/balance_error"),
                    f.at(std::string(c) + "/balance_error"));
    // Synthetic weather: worst month over 20 seeds for each climate.
    std::printf(
        "\n| Climate | Mean dry bulb, worst month (F) | SD of daily mean, worst (%%) | "
        "SD of daily max, worst (%%) | SD of dew point, worst (%%) | Daily solar, worst (%%) |\n");
    std::printf("|---|---|---|---|---|---|\n");
    for (const auto& r : testing::ReadClimateRecords(src + "/tests/engine/climate_records.txt")) {
        double dMean = 0, dSd = 0, dMaxSd = 0, dDew = 0, dSolar = 0;
        for (std::uint64_t seed = 1; seed <= 20; ++seed) {
            const MonthlyClimate g = ClimateOf(SynthesizeWeather(r.climate, r.site, seed));
            const MonthlyClimate& c = r.climate;
            for (int m = 0; m < 12; ++m) {
                dMean = std::max(dMean, std::abs(g.dryBulbMean[m] - c.dryBulbMean[m]));
                dSd = std::max(dSd, 100 * std::abs(g.dryBulbMeanSd[m] / c.dryBulbMeanSd[m] - 1));
                dMaxSd =
                    std::max(dMaxSd, 100 * std::abs(g.dryBulbMaxSd[m] / c.dryBulbMaxSd[m] - 1));
                dDew = std::max(dDew, 100 * std::abs(g.dewPointSd[m] / c.dewPointSd[m] - 1));
                dSolar = std::max(dSolar, 100 * std::abs(g.solar[m] / c.solar[m] - 1));
            }
        }
        std::printf("| %s | %.3f | %.2f | %.2f | %.2f | %.3f |\n", r.name.c_str(), dMean, dSd,
                    dMaxSd, dDew, dSolar);
    }
    // Case 600 on the synthetic twin of the Denver year, five seeds.
    RunOptions opt;
    opt.keepHourly = false;
    const Building b = testing::BestestBuilding(false, false);
    const ZoneResults rec = Simulate(b, w, opt).zones[0];
    std::printf("\n| Weather | Heating, MWh | Cooling, MWh |\n|---|---|---|\n");
    std::printf("| Denver TMY3 (recorded) | %.3f | %.3f |\n", rec.heatingEnergy / 1e6,
                rec.coolingEnergy / 1e6);
    double h = 0, c = 0;
    for (int seed = 1; seed <= 5; ++seed) {
        const ZoneResults s =
            Simulate(b, SynthesizeWeather(ClimateOf(w), w.site, seed), opt).zones[0];
        std::printf("| synthetic twin, seed %d | %.3f | %.3f |\n", seed, s.heatingEnergy / 1e6,
                    s.coolingEnergy / 1e6);
        h += s.heatingEnergy / 5e6, c += s.coolingEnergy / 5e6;
    }
    std::printf("| synthetic twin, mean of 5 | %.3f (%+.1f %%) | %.3f (%+.1f %%) |\n", h,
                100 * (h * 1e6 / rec.heatingEnergy - 1), c,
                100 * (c * 1e6 / rec.coolingEnergy - 1));
    return 0;
}
