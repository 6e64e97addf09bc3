// Prints the ASHRAE 140 figures of the engine beside the reference range, as
// the table of docs/validation.md. Run by hand: engine_validation.
#include <cstdio>

#include "bestest_cases.h"
#include "engine/epw_reader.h"

using namespace solvane::engine;

int main() {
    const std::string src = SOLVANE_SOURCE_DIR;
    const WeatherYear w = ReadEpwFile(src + "/tests/fixtures/weather/725650TYCST.epw");
    const auto ranges = testing::ReadReferenceRanges(src + "/tests/engine/bestest_ranges.csv");
    const auto f = testing::RunBestestCases(w);
    std::printf("| Case | Quantity | Solvane | Reference min | Reference max | Inside |\n");
    std::printf("|---|---|---|---|---|---|\n");
    for (const auto& r : ranges) {
        const double v = f.at(r.caseName + "/" + r.quantity);
        std::printf("| %s | %s | %.3f | %.3f | %.3f | %s |\n", r.caseName.c_str(),
                    r.quantity.c_str(), v, r.min, r.max,
                    (v >= r.min - 1e-9 && v <= r.max + 1e-9) ? "yes" : "NO");
    }
    return 0;
}
