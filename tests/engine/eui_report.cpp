// Prints the sample buildings' site EUI table of docs/validation.md. Run by
// hand: engine_eui_check.
#include <cstdio>

#include "eui_check.h"

using namespace solvane::engine::testing;

int main() {
    std::printf("| Building | Survey type (CBECS 2012) | Q1 | Median | Q3 |");
    for (const EuiClimate& c : EuiClimates()) std::printf(" %s |", c.name.c_str());
    std::printf("\n|---|---|---|---|---|---|---|---|\n");
    for (const EuiSample& s : EuiSamples()) {
        std::printf("| %s | %s | %.1f | %.1f | %.1f |", s.type.c_str(),
                    s.surveyType.empty() ? "(none)" : s.surveyType.c_str(), s.p25, s.median, s.p75);
        for (const EuiClimate& c : EuiClimates()) {
            const EuiResult r = RunEui(s, c);
            std::printf(" %.1f (%.0f %% el., %d unmet h) |", r.siteEui, 100 * r.electricShare,
                        r.unmetHours);
            std::fflush(stdout);
        }
        std::printf("\n");
    }
}
