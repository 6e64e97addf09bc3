// The engine's annual run of a generated 100-zone building of about 2,000
// surfaces with synthetic weather: the whole run (weather synthesis,
// simulation, report) and its parts.
#include <benchmark/benchmark.h>

#include "engine/generated_building.h"
#include "engine/report.h"
#include "engine/simulation.h"
#include "engine/synthetic_weather.h"

namespace {

using namespace solvane::engine;

// A cold climate record (Minneapolis, the program's climate database).
MonthlyClimate Climate() {
    MonthlyClimate c;
    c.dryBulbMean = {11.5, 23.3, 35.7, 45.6, 61.7, 68.7, 74.8, 69.1, 60.5, 46.8, 32.5, 19.5};
    c.dryBulbMeanSd = {12.1, 9.8, 9.3, 12.7, 8, 6.7, 5.3, 6.4, 10, 4.5, 8.4, 10.3};
    c.dryBulbMax = {18.2, 31.3, 44, 54.5, 72.4, 78.6, 83.9, 76.5, 70.3, 56.5, 38.2, 25.6};
    c.dryBulbMaxSd = {12.1, 10.4, 11.4, 15.7, 9.3, 7.9, 6.7, 7.1, 11.7, 7.5, 9.2, 11};
    c.dewPointMean = {2.5, 12.1, 22.9, 33.5, 45.8, 52.5, 62, 58.7, 49.3, 37.1, 23.7, 10.4};
    c.dewPointSd = {13.5, 11.5, 13, 11.8, 12.2, 7.2, 6.7, 7.6, 9.9, 4.8, 10.1, 12.4};
    c.solar = {547, 821, 1170, 1510, 1871, 2035, 1908, 1638, 1276, 892, 505, 383};
    c.wind = {10.2, 10.5, 11.5, 11.2, 10.7, 9.3, 10, 8.9, 10, 9.9, 10.3, 10.7};
    return c;
}

Site MinneapolisSite() {
    Site s;
    s.name = "Minneapolis-St Paul Intl AP, Minnesota";
    s.latitude = 44.883;
    s.longitude = -93.233;
    s.timeZone = -6;
    s.elevation = 254;
    return s;
}

const Building& Generated() {
    static const Building b = GenerateOfficeBuilding(100, 20);
    return b;
}

RunOptions Options() {
    RunOptions o;
    return o;
}

ReportContext Context() {
    ReportContext c;
    c.projectName = "Generated office";
    c.location = "Minneapolis-St Paul Intl AP, Minnesota";
    c.control.runType = 3;
    c.weatherSource = "SIMULATED";
    return c;
}

// Every zone of the generated office on a packaged rooftop unit with a gas
// furnace (catalog type 11) and 1 gal of hot water a person a day.
std::vector<ZoneSystem> Systems(const Building& b) {
    std::vector<ZoneSystem> s;
    for (const Zone& z : b.zones) {
        ZoneSystem sys = SystemOfType(11, 1, 14.0, 0.81, 2.5);
        sys.fanProfile = z.outdoorAirProfile;
        sys.hotWaterPerDay = z.floorArea / 20.0 * 0.0037854;
        s.push_back(sys);
    }
    return s;
}

// Argument: the threads the zones are stepped on.
void BM_EngineAnnualRun(benchmark::State& state) {
    const Building& b = Generated();
    RunOptions opt = Options();
    opt.threads = static_cast<int>(state.range(0));
    for (auto _ : state) {
        const WeatherYear w = SynthesizeWeather(Climate(), MinneapolisSite(), 42);
        const RunResults r = Simulate(b, w, opt);
        const std::vector<ZoneSystem> systems = Systems(b);
        const SystemsResults sys = SimulateSystems(b, r, w, opt, systems);
        std::string out = SimOutText(b, r, sys, systems, Context());
        out += ComfortText(b, r, Context());
        out += WeatherSummaryText(w, Context());
        benchmark::DoNotOptimize(out);
    }
    std::size_t surfaces = 0;
    for (const Zone& z : b.zones) surfaces += z.surfaces.size();
    state.counters["zones"] = static_cast<double>(b.zones.size());
    state.counters["surfaces"] = static_cast<double>(surfaces);
}
BENCHMARK(BM_EngineAnnualRun)->Arg(1)->Arg(2)->UseRealTime()->Unit(benchmark::kMillisecond);

void BM_EngineWeatherSynthesis(benchmark::State& state) {
    for (auto _ : state) {
        const WeatherYear w = SynthesizeWeather(Climate(), MinneapolisSite(), 42);
        benchmark::DoNotOptimize(w.hours.data());
    }
}
BENCHMARK(BM_EngineWeatherSynthesis)->Unit(benchmark::kMillisecond);

void BM_EngineSimulation(benchmark::State& state) {
    const WeatherYear w = SynthesizeWeather(Climate(), MinneapolisSite(), 42);
    RunOptions opt = Options();
    opt.stepsPerHour = static_cast<int>(state.range(0));
    opt.threads = 1;
    for (auto _ : state) {
        const RunResults r = Simulate(Generated(), w, opt);
        benchmark::DoNotOptimize(r.zones.data());
    }
}
BENCHMARK(BM_EngineSimulation)->Arg(1)->Arg(4)->Unit(benchmark::kMillisecond);

void BM_EngineReport(benchmark::State& state) {
    const WeatherYear w = SynthesizeWeather(Climate(), MinneapolisSite(), 42);
    RunOptions opt = Options();
    opt.threads = 1;
    const RunResults r = Simulate(Generated(), w, opt);
    const std::vector<ZoneSystem> systems = Systems(Generated());
    for (auto _ : state) {
        const SystemsResults sys = SimulateSystems(Generated(), r, w, Options(), systems);
        std::string out = SimOutText(Generated(), r, sys, systems, Context());
        out += ComfortText(Generated(), r, Context());
        out += WeatherSummaryText(w, Context());
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(BM_EngineReport)->Unit(benchmark::kMillisecond);

}  // namespace
