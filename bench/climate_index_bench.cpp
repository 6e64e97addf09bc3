// Start-up reading of the whole climate database: the record count of every
// region file, the state tallies, the map lists and the group pass.
#include <benchmark/benchmark.h>

#include "core/program_paths.h"
#include "weather/climate_database.h"

namespace {

void BM_LoadClimateIndex(benchmark::State& state) {
    const solvane::ProgramPaths paths(std::filesystem::path(SOLVANE_SOURCE_DIR) / "data");
    long total = 0;
    for (auto _ : state) {
        solvane::ClimateIndex index;
        total = solvane::LoadLocationCounts(paths, index);
        benchmark::DoNotOptimize(total);
    }
    state.counters["stations"] = static_cast<double>(total);
}
BENCHMARK(BM_LoadClimateIndex)->Unit(benchmark::kMillisecond);

}  // namespace
