// Number <-> text conversions run for every field of every file the program
// reads or writes; these figures show what one conversion costs.
#include <benchmark/benchmark.h>

#include "core/numeric_helpers.h"

namespace {

void BM_NumVal(benchmark::State& state) {
    const char* texts[] = {" 12.5", "CP15", "-3.25E+02", " 1 234", "Yes"};
    std::size_t i = 0;
    for (auto _ : state) benchmark::DoNotOptimize(solvane::NumVal(texts[i++ % 5]));
}
BENCHMARK(BM_NumVal);

void BM_PrintNumFloat(benchmark::State& state) {
    float v = 0.123f;
    for (auto _ : state) {
        benchmark::DoNotOptimize(solvane::PrintNum(v));
        v += 1.37f;
    }
}
BENCHMARK(BM_PrintNumFloat);

}  // namespace
